// SPDX-License-Identifier: MIT
#include "platform/win/family.h"

#include <windows.h>

namespace scourwell {

bool HasWideCalls() {
  static const bool wide = [] {
    SetLastError(NO_ERROR);
    GetFileAttributesW(L".");
    return GetLastError() != ERROR_CALL_NOT_IMPLEMENTED;
  }();
  return wide;
}

}  // namespace scourwell
