// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/control.h"

namespace scourwell {

// The tool-tips of one window's controls.
class ToolTip : public Control {
 public:
  void Create(const WindowEnv& env, HWND owner);
  // An empty text shows nothing.
  void Set(HWND control, const std::string& text) const;
};

}  // namespace scourwell
