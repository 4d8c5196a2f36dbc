// SPDX-License-Identifier: MIT
#include "platform/win/nt/descriptor_check.h"

#include <windows.h>

#include "platform/win/late_bind.h"

namespace scourwell {

bool IsDescriptor(const std::string& bytes) {
  constexpr std::size_t kSmallest = 20;
  if (bytes.size() < kSmallest || !(static_cast<unsigned char>(bytes[3]) & SE_SELF_RELATIVE >> 8)) {
    return false;
  }
  using Judge = BOOLEAN(WINAPI*)(PSECURITY_DESCRIPTOR, ULONG, SECURITY_INFORMATION);
  static const auto judge = LateBind<Judge>("ntdll.dll", "RtlValidRelativeSecurityDescriptor");
  std::string copy = bytes;
  return !judge || judge(copy.data(), static_cast<ULONG>(copy.size()), 0) != FALSE;
}

}  // namespace scourwell
