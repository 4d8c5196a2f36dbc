// SPDX-License-Identifier: MIT
#include "platform/posix/clock_posix.h"

#include <ctime>

#include "text/text.h"

namespace scourwell {
namespace {

constexpr std::int64_t kStepsOfSecond = 10'000'000;
constexpr std::int64_t kSecondsTo1970 = 11'644'473'600;  // since 1601

LocalTime FromSeconds(std::time_t seconds, int millisecond) {
  std::tm parts = {};
  localtime_r(&seconds, &parts);
  return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour,
          parts.tm_min,         parts.tm_sec,     millisecond};
}

std::string Digits(int number, unsigned count) {
  return Padded(static_cast<unsigned>(number), count);
}

}  // namespace

LocalTime ClockPosix::Now() {
  std::timespec now = {};
  clock_gettime(CLOCK_REALTIME, &now);
  return FromSeconds(now.tv_sec, static_cast<int>(now.tv_nsec / 1'000'000));
}

std::uint32_t ClockPosix::Ticks() {
  std::timespec now = {};
  clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
  return static_cast<std::uint32_t>(now.tv_sec * 1000 + now.tv_nsec / 1'000'000);
}

LocalTime ClockPosix::ToLocal(FileTime time) {
  const auto steps = static_cast<std::int64_t>(time);
  return FromSeconds(steps / kStepsOfSecond - kSecondsTo1970,
                     static_cast<int>(steps % kStepsOfSecond / 10'000));
}

std::string ClockPosix::ShortDate(const LocalTime& time) {
  return Digits(time.year, 4) + "-" + Digits(time.month, 2) + "-" + Digits(time.day, 2);
}

std::string ClockPosix::TimeOfDay(const LocalTime& time) {
  return Digits(time.hour, 2) + ":" + Digits(time.minute, 2) + ":" + Digits(time.second, 2);
}

}  // namespace scourwell
