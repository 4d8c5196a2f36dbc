// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

namespace scourwell {

// Remembers which control of the main window has the focus while another window is in front.
class FocusKeeper {
 public:
  // The main window is about to lose the activation.
  void Note(HWND frame);
  // Gives the focus back, or to `otherwise` when the old place cannot take it any more.
  void Restore(HWND frame, HWND otherwise);
  // Moves it; while another window is in front, only once the main window comes back.
  void Move(HWND frame, HWND target);

 private:
  HWND last_ = nullptr;
};

}  // namespace scourwell
