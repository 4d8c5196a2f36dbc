// SPDX-License-Identifier: MIT
#include "platform/win/system_folding.h"

#include <windows.h>

#include "platform/win/family.h"
#include "platform/win/late_bind.h"
#include "platform/win/native_text.h"
#include "platform/win/w9x/upper_case_9x.h"
#include "text/folding.h"
#include "text/unicode.h"

namespace scourwell {
namespace {

// The kernel's own table, by which the NT family compares names of files, keys and itself.
using UpcaseUnicodeChar = WCHAR(WINAPI*)(WCHAR);
UpcaseUnicodeChar kernel_upper_case = nullptr;

char16_t KernelUpperCase(char16_t unit) {
  return static_cast<char16_t>(kernel_upper_case(static_cast<WCHAR>(unit)));
}

}  // namespace

void UseSystemFolding() {
  if (!HasWideCalls()) return Folding::Use(UpperCase9x);
  kernel_upper_case = LateBind<UpcaseUnicodeChar>("ntdll.dll", "RtlUpcaseUnicodeChar");
  if (kernel_upper_case) Folding::Use(KernelUpperCase);
}

}  // namespace scourwell
