// SPDX-License-Identifier: MIT
#include "scan/folder_walk.h"

#include "text/paths.h"

namespace scourwell {

bool FolderWalk::Next() {
  while (!levels_.empty() && levels_.back().next == levels_.back().subfolders.size()) {
    levels_.pop_back();
  }
  if (!levels_.empty()) {
    Level& level = levels_.back();
    begin_ = level.begin + level.share * static_cast<double>(level.next);
    share_ = level.share;
    folder_ = AddPathToFileName(level.path, level.subfolders[level.next++]);
    return true;
  }
  const auto roots = static_cast<double>(roots_.size());
  begin_ = roots_.empty() ? 1 : static_cast<double>(next_root_) / roots;
  if (next_root_ == roots_.size()) return false;
  share_ = 1 / roots;
  folder_ = roots_[next_root_++];
  return true;
}

void FolderWalk::Descend(std::vector<std::string> subfolders) {
  if (subfolders.empty()) return;
  const double share = share_ / static_cast<double>(subfolders.size() + 1);
  levels_.push_back({folder_, std::move(subfolders), 0, begin_ + share, share});
}

FolderWalk FolderWalk::FromHere() const {
  FolderWalk rest = *this;
  if (rest.levels_.empty()) {
    --rest.next_root_;
  } else {
    --rest.levels_.back().next;
  }
  return rest;
}

}  // namespace scourwell
