// SPDX-License-Identifier: MIT
#pragma once

#include "platform/clock.h"

namespace scourwell {

// Dates and times in the one spelling that reads the same everywhere: 2004-03-05 and 12:00:00.
class ClockPosix : public Clock {
 public:
  LocalTime Now() override;
  std::uint32_t Ticks() override;
  LocalTime ToLocal(FileTime time) override;
  std::string ShortDate(const LocalTime& time) override;
  std::string TimeOfDay(const LocalTime& time) override;
};

}  // namespace scourwell
