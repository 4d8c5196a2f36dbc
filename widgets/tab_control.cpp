// SPDX-License-Identifier: MIT
#include "widgets/tab_control.h"

#include "platform/win/control_calls.h"

namespace scourwell {

void TabControl::Create(const WindowEnv& env, HWND parent, int id) {
  CreateHandle(env, parent, "SysTabControl32", WS_TABSTOP | WS_CLIPSIBLINGS, 0, id);
}

void TabControl::Add(const std::string& text) { Controls().AddTab(hwnd(), count_++, text); }

int TabControl::Selected() const { return static_cast<int>(Send(TCM_GETCURSEL)); }

void TabControl::Select(int index) const { Send(TCM_SETCURSEL, static_cast<WPARAM>(index)); }

Area TabControl::Inside(Area area) const {
  RECT inside = area.rect();
  Send(TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&inside));
  return Area(inside);
}

void TabPage::Create(HWND dialog) {
  Frame frame;
  frame.parent = dialog;
  frame.style = WS_CHILD | WS_CLIPSIBLINGS;
  frame.ex_style = WS_EX_CONTROLPARENT;
  CreateHandle(frame);
}

LRESULT TabPage::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_COMMAND:
    case WM_MEASUREITEM:
    case WM_DRAWITEM:
    case WM_NEXTDLGCTL:
      return Calls().Send(GetParent(hwnd()), message, wparam, lparam);
    default:
      return Window::OnMessage(message, wparam, lparam);
  }
}

}  // namespace scourwell
