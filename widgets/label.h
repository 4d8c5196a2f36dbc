// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/control.h"

namespace scourwell {

// A caption. "&" in it is shown, not eaten.
class Label : public Control {
 public:
  void Create(const WindowEnv& env, HWND parent, int id, const std::string& text = {},
              DWORD align = SS_LEFTNOWORDWRAP) {
    CreateHandle(env, parent, "STATIC", SS_NOPREFIX | align, 0, id, text);
  }
  // "&" marks the access key of the control behind it.
  void CreateWithKey(const WindowEnv& env, HWND parent, int id, const std::string& text) {
    CreateHandle(env, parent, "STATIC", SS_LEFTNOWORDWRAP, 0, id, text);
  }
};

}  // namespace scourwell
