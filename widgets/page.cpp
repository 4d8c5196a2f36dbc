// SPDX-License-Identifier: MIT
#include "widgets/page.h"

namespace scourwell {

// Only the holder of the pages may destroy one: it keeps track of them.
Page::~Page() {
  if (hwnd()) Calls().Send(GetParent(hwnd()), WM_MDIDESTROY, reinterpret_cast<WPARAM>(hwnd()), 0);
}

void Page::CreateIn(HWND client) {
  RECT area = {};
  GetClientRect(client, &area);
  Frame frame;
  frame.parent = client;
  frame.style = WS_CHILD | WS_CLIPSIBLINGS;
  frame.ex_style = WS_EX_MDICHILD | WS_EX_CONTROLPARENT;
  frame.place = Area(area);
  CreateHandle(frame);
}

LRESULT Page::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  const LRESULT result = Window::OnMessage(message, wparam, lparam);
  if (message == WM_SETFOCUS && IsWindowVisible(FirstFocus())) SetFocus(FirstFocus());
  return result;
}

}  // namespace scourwell
