// SPDX-License-Identifier: MIT
#include "scan/walk_goal.h"

namespace scourwell {

void WalkGoal::Measure() {
  measuring_ = true;
  std::uint32_t total = 0;
  for (const Root& root : roots_) total += root.folders;
  meter_.Begin(total);
}

// Roots before it that are not walked again, a drive whose disk was taken out, count as done. One
// that the first walk did not see has no share.
void WalkGoal::Enter(const std::string& root) {
  if (!measuring_) {
    roots_.push_back({root, 0});
    return;
  }
  std::size_t at = next_;
  while (at < roots_.size() && roots_[at].path != root) ++at;
  if (at == roots_.size()) return meter_.BeginPortion(0);
  for (; next_ < at; ++next_) {
    meter_.BeginPortion(roots_[next_].folders);
    meter_.EndPortion();
  }
  meter_.BeginPortion(roots_[next_++].folders);
}

void WalkGoal::FolderDone() {
  if (measuring_) return meter_.Step();
  ++roots_.back().folders;
}

void WalkGoal::Leave() {
  if (measuring_) meter_.EndPortion();
}

}  // namespace scourwell
