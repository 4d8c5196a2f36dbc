// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace scourwell {

// Found components of one scan, by kind. Sixteen bits wide: counting past 32767 is an overflow.
struct HitCounters {
  std::int16_t processes = 0;
  std::int16_t registry = 0;
  std::int16_t folders = 0;
  std::int16_t files = 0;  // files and cookies
  std::int16_t ignored = 0;

  int Total() const { return processes + registry + folders + files; }
};

}  // namespace scourwell
