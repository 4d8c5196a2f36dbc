// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/win/window_calls.h"
#include "widgets/window_env.h"

namespace scourwell {

// A system control inside one of our windows, which destroys it. Thin: calls on a handle.
class Control {
 public:
  Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  HWND hwnd() const { return hwnd_; }
  void SetText(const std::string& text) const { Calls().SetText(hwnd_, text); }
  std::string Text() const { return Calls().Text(hwnd_); }
  void SetFont(HFONT font) const { Send(WM_SETFONT, reinterpret_cast<WPARAM>(font), 1); }
  void Enable(bool enabled) const;
  bool enabled() const { return IsWindowEnabled(hwnd_) != FALSE; }
  void Show(bool shown) const { ShowWindow(hwnd_, shown ? SW_SHOWNA : SW_HIDE); }
  bool Shown() const { return (Calls().Long(hwnd_, GWL_STYLE) & WS_VISIBLE) != 0; }
  void Redraw() const { InvalidateRect(hwnd_, nullptr, FALSE); }

 protected:
  ~Control() = default;

  // Visible, with the message font. Throws when the system refuses.
  void CreateHandle(const WindowEnv& env, HWND parent, const char* window_class, DWORD style,
                    DWORD ex_style, int id, const std::string& text = {});
  LRESULT Send(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const {
    return Calls().Send(hwnd_, message, wparam, lparam);
  }
  LRESULT SendText(UINT message, WPARAM wparam, const std::string& text) const {
    return Calls().SendText(hwnd_, message, wparam, text);
  }

  HWND hwnd_ = nullptr;
};

}  // namespace scourwell
