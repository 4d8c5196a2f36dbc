// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

namespace scourwell {

// The vertical scroll bar of a window whose content may be higher than the window: there only while
// it is needed.
class VerticalScroll {
 public:
  // The window's client area may change its width by this.
  void Fit(HWND window, int content, int view);
  // WM_VSCROLL and WM_MOUSEWHEEL. True when the content has to be laid out anew.
  bool OnMessage(HWND window, UINT message, WPARAM wparam, int line);
  // Brings a child window into sight. True when the content has to be laid out anew.
  bool Reveal(HWND window, HWND child);

  int position() const { return position_; }

 private:
  bool MoveTo(HWND window, int position);

  int content_ = 0;
  int view_ = 0;
  int position_ = 0;
};

}  // namespace scourwell
