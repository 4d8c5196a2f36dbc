// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include "platform/win/unique_handle.h"

namespace scourwell {

// While it lives, every process of the machine can be opened, where the user may do so at all.
// Administrators have that privilege switched off.
class DebugPrivilege {
 public:
  DebugPrivilege();
  DebugPrivilege(const DebugPrivilege&) = delete;
  DebugPrivilege& operator=(const DebugPrivilege&) = delete;
  // Gives it back; the last error stays.
  ~DebugPrivilege();

 private:
  KernelHandle token_;
  TOKEN_PRIVILEGES before_ = {};
};

}  // namespace scourwell
