// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>

namespace scourwell {

// How far the current phase has got, in steps of its own: folders, registry entries, files. The
// total was counted beforehand and may be wrong by now, so the steps done never fall, and the last
// one of a portion is taken only when the portion says that it is through.
class PhaseMeter {
 public:
  // The next phase. `total`: the steps before it; 0 when nobody can tell.
  void Begin(std::uint32_t total) {
    ++number_;
    total_ = total;
    done_ = portion_begin_ = portion_end_ = 0;
  }
  // The next `steps` of the total belong together.
  void BeginPortion(std::uint32_t steps) {
    portion_begin_ = done_;
    portion_end_ = done_ + std::min(steps, total_ - done_);
  }
  void Step() {
    if (portion_end_ > done_ + 1) ++done_;
  }
  // A part of the portion, from 0 to 1, is done.
  void Reach(double part) {
    const auto size = static_cast<double>(portion_end_ - portion_begin_);
    const auto step =
        portion_begin_ + static_cast<std::uint32_t>(size * std::clamp(part, 0.0, 1.0));
    if (step < portion_end_) done_ = std::max(done_, step);
  }
  void EndPortion() { done_ = std::max(done_, portion_end_); }

  std::uint32_t number() const { return number_; }  // of phases begun
  std::uint32_t total() const { return total_; }
  std::uint32_t done() const { return done_; }

 private:
  std::uint32_t number_ = 0;
  std::uint32_t total_ = 0;
  std::uint32_t done_ = 0;
  std::uint32_t portion_begin_ = 0;
  std::uint32_t portion_end_ = 0;
};

// Rounded down: 100 means the end. -1 when the total is not known.
inline int Percent(std::uint32_t done, std::uint32_t total) {
  if (total == 0) return -1;
  return static_cast<int>(std::uint64_t{std::min(done, total)} * 100 / total);
}

}  // namespace scourwell
