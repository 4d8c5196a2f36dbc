// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/control.h"

namespace scourwell {

// A line to type in.
class Edit : public Control {
 public:
  void Create(const WindowEnv& env, HWND parent, int id, const std::string& text = {}) {
    CreateHandle(env, parent, "EDIT", WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, id, text);
  }
  void SelectAll() const { Send(EM_SETSEL, 0, -1); }
};

}  // namespace scourwell
