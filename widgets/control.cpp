// SPDX-License-Identifier: MIT
#include "widgets/control.h"

namespace scourwell {

void Control::CreateHandle(const WindowEnv& env, HWND parent, const char* window_class, DWORD style,
                           DWORD ex_style, int id, const std::string& text) {
  NewWindow made;
  made.window_class = window_class;
  made.text = text;
  made.style = WS_CHILD | WS_VISIBLE | style;
  made.ex_style = ex_style;
  made.parent = parent;
  made.id_or_menu = reinterpret_cast<HMENU>(static_cast<INT_PTR>(id));
  made.instance = env.instance;
  hwnd_ = Calls().Create(made);
  if (!hwnd_) {
    throw std::runtime_error(std::string("No window of the class ") + window_class +
                             " could be created");
  }
  SetFont(env.metrics.font());
}

// A control that is grey must not keep the keyboard to itself: its window says who is next.
void Control::Enable(bool enabled) const {
  const bool held = !enabled && GetFocus() == hwnd_;
  EnableWindow(hwnd_, enabled);
  if (!held) return;
  HWND top = GetParent(hwnd_);
  while (Calls().Long(top, GWL_STYLE) & WS_CHILD) top = GetParent(top);
  SetFocus(top);
}

}  // namespace scourwell
