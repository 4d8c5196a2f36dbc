// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/control.h"

namespace scourwell {

class Button : public Control {
 public:
  void Create(const WindowEnv& env, HWND parent, int id, const std::string& text) {
    CreateHandle(env, parent, "BUTTON", WS_TABSTOP | BS_PUSHBUTTON, 0, id, text);
    width_ = env.metrics.ButtonWidth(text);
  }
  void SetCaption(const Metrics& metrics, const std::string& text) {
    SetText(text);
    width_ = metrics.ButtonWidth(text);
  }
  // The width that the caption asks for.
  int width() const { return width_; }

 private:
  int width_ = 0;
};

}  // namespace scourwell
