// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/control.h"

namespace scourwell {

// A box to tick. Its caption may take several lines.
class CheckBox : public Control {
 public:
  // The box and its distance from the caption, at 96 dots per inch.
  static constexpr int kBox = 17;

  void Create(const WindowEnv& env, HWND parent, int id, const std::string& text) {
    CreateHandle(env, parent, "BUTTON", WS_TABSTOP | BS_AUTOCHECKBOX | BS_MULTILINE, 0, id, text);
  }
  bool Checked() const { return Send(BM_GETCHECK) == BST_CHECKED; }
  void Check(bool checked) const { Send(BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED); }
  // Of a box with this caption in so narrow a place.
  static int Height(const Metrics& metrics, const std::string& caption, int width) {
    return metrics.TextHeight(caption, width - metrics.Scale(kBox + 3)) + metrics.Scale(4);
  }
};

}  // namespace scourwell
