// SPDX-License-Identifier: MIT
#include "scan/time_left.h"

#include <algorithm>

#include "text/text.h"

namespace scourwell {
namespace {

// Milliseconds.
constexpr std::uint32_t kInterval = 250;
constexpr std::uint32_t kLongestGap = 10000;  // beyond it the machine slept or a menu was open
constexpr std::uint32_t kGroundTime = 4000;
constexpr double kMemory = 60000;
constexpr double kInertia = 8000;
constexpr double kNoSense = 24 * 3600 * 1000.0;

constexpr int kGroundPercent = 2;

struct Grain {
  std::uint32_t below;  // seconds
  std::uint32_t step;
};
constexpr Grain kGrains[] = {{60, 5}, {600, 10}, {3600, 60}, {UINT32_MAX, 300}};

std::uint32_t StepAt(double seconds) {
  const Grain* grain = kGrains;
  while (seconds > grain->below) ++grain;
  return grain->step;
}

std::uint32_t RoundedUp(double seconds) {
  const std::uint32_t step = StepAt(seconds);
  const auto steps = static_cast<std::uint32_t>(seconds / step);
  return (steps * step < seconds || steps == 0 ? steps + 1 : steps) * step;
}

}  // namespace

void TimeLeft::Update(std::uint32_t ticks, const PhaseMeter& meter) {
  if (meter.number() != phase_) {
    Restart();
    phase_ = meter.number();
    last_ticks_ = ticks;
    last_done_ = meter.done();
    return;
  }
  if (ticks - last_ticks_ < kInterval) return;
  const std::uint32_t passed = std::min(ticks - last_ticks_, kLongestGap);
  last_ticks_ = ticks;
  spent_ += passed;
  const double fading = kMemory / (kMemory + passed);
  recent_steps_ = recent_steps_ * fading + (meter.done() - last_done_);
  recent_time_ = recent_time_ * fading + passed;
  last_done_ = meter.done();
  if (!HasGround(meter)) {
    shown_.reset();
    return;
  }
  const double guess = (meter.total() - meter.done()) * recent_time_ / recent_steps_;
  if (!left_ || *left_ > kNoSense) {
    left_ = guess;
  } else {
    *left_ = std::max(0.0, *left_ - passed);
    *left_ += (guess - *left_) * passed / (passed + kInertia);
  }
  Show(*left_ / 1000);
}

bool TimeLeft::HasGround(const PhaseMeter& meter) const {
  return spent_ >= kGroundTime && meter.done() < meter.total() && recent_steps_ > 0 &&
         Percent(meter.done(), meter.total()) >= kGroundPercent;
}

// A number that was rounded up stays until the time has really grown beyond the next one: it must
// not flicker between two.
void TimeLeft::Show(double left) {
  if (left * 1000 > kNoSense) {
    shown_.reset();
    return;
  }
  const std::uint32_t rounded = RoundedUp(left);
  if (shown_ && rounded > *shown_ && left <= *shown_ + StepAt(*shown_)) return;
  shown_ = rounded;
}

std::string ClockText(std::uint32_t seconds) {
  const std::string short_form = Padded(seconds / 60 % 60, 2) + ":" + Padded(seconds % 60, 2);
  return seconds < 3600 ? short_form : std::to_string(seconds / 3600) + ":" + short_form;
}

}  // namespace scourwell
