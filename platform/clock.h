// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "platform/files.h"

namespace scourwell {

// Local time, as the wall clock shows it.
struct LocalTime {
  int year = 2000;
  int month = 1;
  int day = 1;
  int hour = 0;
  int minute = 0;
  int second = 0;
  int millisecond = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;

  virtual LocalTime Now() = 0;
  // Milliseconds since some start; wraps after 49 days, so only differences count.
  virtual std::uint32_t Ticks() = 0;
  virtual LocalTime ToLocal(FileTime time) = 0;

  // The user's own formats.
  virtual std::string ShortDate(const LocalTime& time) = 0;
  virtual std::string TimeOfDay(const LocalTime& time) = 0;

  // Short date, a blank, time of day.
  std::string GeneralDate(const LocalTime& time) { return ShortDate(time) + " " + TimeOfDay(time); }
};

}  // namespace scourwell
