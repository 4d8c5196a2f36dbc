// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "scan/phase_meter.h"

namespace scourwell {

// Foretells the rest of the current phase, not of the whole scan: nobody knows how long a phase
// takes that has not begun. The pass over the files comes last, so its rest is the scan's.
//
// The ground is the speed of the last minute. It says nothing before there is some, and is
// smoothed: between two looks it counts down like a clock and bends slowly to what it learns.
class TimeLeft {
 public:
  // To be called often, with the milliseconds of a clock that may wrap. Another phase begins anew.
  void Update(std::uint32_t ticks, const PhaseMeter& meter);
  void Restart() { *this = {}; }

  // Rounded upward, the more coarsely the more there are; empty without ground and at the end.
  std::optional<std::uint32_t> Seconds() const { return shown_; }

 private:
  bool HasGround(const PhaseMeter& meter) const;
  void Show(double left);

  std::uint32_t phase_ = 0;
  std::uint32_t last_ticks_ = 0;
  std::uint32_t last_done_ = 0;
  std::uint32_t spent_ = 0;  // milliseconds of the phase
  double recent_steps_ = 0;  // the older, the less they weigh
  double recent_time_ = 0;
  std::optional<double> left_;  // milliseconds
  std::optional<std::uint32_t> shown_;
};

// "04:05", from an hour on "1:04:05".
std::string ClockText(std::uint32_t seconds);

}  // namespace scourwell
