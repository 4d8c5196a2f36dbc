// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "tests/helpers.h"

namespace scourwell::test {

// One damage: the end is cut off, some bytes are taken out, stand twice, or one is another.
inline void Mutate(Dice& dice, std::string* bytes) {
  if (bytes->empty()) return;
  const std::size_t at = dice.Below(bytes->size());
  switch (dice.Below(4)) {
    case 0:
      bytes->resize(at);
      return;
    case 1:
      bytes->erase(at, dice.Below(9));
      return;
    case 2:
      bytes->insert(at, bytes->substr(dice.Below(bytes->size()), dice.Below(40)));
      return;
    default:
      (*bytes)[at] = static_cast<char>(dice.Below(256));
  }
}

}  // namespace scourwell::test
