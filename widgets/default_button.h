// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

namespace scourwell {

// Keeps the heavy border on the one button that Enter presses: the one with the focus, else the
// page's own choice. Dialogs do this by themselves; pages of the main window are none.
class DefaultButton {
 public:
  // Cheap when nothing has changed.
  void Follow(HWND preferred);
  // What Enter presses; null: nothing.
  HWND hwnd() const { return IsWindow(current_) ? current_ : nullptr; }

 private:
  HWND current_ = nullptr;
};

}  // namespace scourwell
