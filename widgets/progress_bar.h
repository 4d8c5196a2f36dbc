// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/subclassed_control.h"

namespace scourwell {

class ProgressBar : public SubclassedControl {
 public:
  void Create(const WindowEnv& env, HWND parent, int id) {
    CreateHandle(env, parent, "msctls_progress32", 0, 0, id);
    Subclass(env, "ProgressBar");
  }
  void SetRange(int maximum) const { Send(PBM_SETRANGE32, 0, maximum); }
  void SetPosition(int position) const { Send(PBM_SETPOS, static_cast<WPARAM>(position)); }
};

}  // namespace scourwell
