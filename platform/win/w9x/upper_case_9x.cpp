// SPDX-License-Identifier: MIT
#include "platform/win/w9x/upper_case_9x.h"

#include <windows.h>

#include "text/folding.h"

namespace scourwell {

char16_t UpperCase9x(char16_t unit) {
  // Names of the system are compared by these, which a language may have its own ideas of: there
  // are two kinds of "i" in Turkish.
  if (unit < 0x80) return Folding::Usual(unit);
  const auto wide = static_cast<wchar_t>(unit);
  char letter[2];
  wchar_t back[2];
  int size = WideCharToMultiByte(CP_ACP, 0, &wide, 1, letter, 2, nullptr, nullptr);
  // Only a letter that the code page really has.
  if (size <= 0 || MultiByteToWideChar(CP_ACP, 0, letter, size, back, 2) != 1 || back[0] != wide) {
    return Folding::Usual(unit);
  }
  CharUpperBuffA(letter, static_cast<DWORD>(size));
  size = MultiByteToWideChar(CP_ACP, 0, letter, size, back, 2);
  return size == 1 && back[0] >= 0x80 ? static_cast<char16_t>(back[0]) : unit;
}

}  // namespace scourwell
