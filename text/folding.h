// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "text/unicode.h"

namespace scourwell {

// How characters are compared without case: each by itself, one 16-bit unit to one, as the NT
// family compares names. It starts as that family's usual table; the Windows side replaces it by
// what the running system does.
class Folding {
 public:
  using UpperCase = char16_t (*)(char16_t);

  static char32_t Of(char32_t code) {
    return code < 0x10000 ? table_[static_cast<std::size_t>(code)] : code;
  }
  // `upper` is asked once for every unit.
  static void Use(UpperCase upper);
  // The usual table's answer.
  static char16_t Usual(char16_t unit);

 private:
  static const char16_t* LoadUsual();
  static const char16_t* table_;
};

}  // namespace scourwell
