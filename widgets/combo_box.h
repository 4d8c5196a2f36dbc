// SPDX-License-Identifier: MIT
#pragma once

#include <windowsx.h>

#include "widgets/control.h"

namespace scourwell {

// A list that unfolds, without a line to type in.
class ComboBox : public Control {
 public:
  void Create(const WindowEnv& env, HWND parent, int id) {
    CreateHandle(env, parent, "COMBOBOX", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, 0, id);
  }
  void Add(const std::string& text) const { SendText(CB_ADDSTRING, 0, text); }
  void Select(int index) const { Send(CB_SETCURSEL, static_cast<WPARAM>(index)); }
  int Selected() const { return static_cast<int>(Send(CB_GETCURSEL)); }
};

}  // namespace scourwell
