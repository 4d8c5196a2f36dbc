// SPDX-License-Identifier: MIT
#include "results/tree_remover.h"

#include <utility>

#include "text/caption_ids.h"
#include "text/paths.h"

namespace scourwell {
Outcome TreeRemover::Remove(const std::string& path, std::unique_ptr<OpenedItem> folder) {
  root_ = folder->true_path();
  Take(path, std::move(folder));
  while (!levels_.empty()) {
    if (!pump_.Next()) {
      levels_.clear();
      Note(Outcome::Failed(kPathFileAccess, "The removal was stopped")
               .Because(Caption::ReasonStopped),
           path);
      break;
    }
    Step();
  }
  return std::move(failure_);
}

void TreeRemover::Step() {
  Level& level = levels_.back();
  if (level.rest.empty()) {
    Level done = std::move(level);
    levels_.pop_back();
    return RemoveOne(done.path, std::move(done.folder));
  }
  const std::string path = AddPathToFileName(level.path, level.rest.back().name);
  level.rest.pop_back();
  std::unique_ptr<OpenedItem> item;
  Outcome opened = files_.OpenItem(path, &item);
  if (IsAbsent(opened)) return;
  if (opened.ok() && !IsAtOrBelow(item->true_path(), root_)) {
    opened =
        Outcome::Failed(kPathFileAccess, "It leads out of the folder").Because(Caption::ReasonLink);
  }
  opened.ok() ? Take(path, std::move(item)) : Note(std::move(opened), path);
}

void TreeRemover::Take(const std::string& path, std::unique_ptr<OpenedItem> item) {
  const std::uint32_t attributes = item->attributes();
  if ((attributes & kFolder) && !(attributes & kLink)) {
    Enter(path, std::move(item));
  } else {
    RemoveOne(path, std::move(item));
  }
}

// A folder that cannot be listed may still be empty: its removal tells.
void TreeRemover::Enter(const std::string& path, std::unique_ptr<OpenedItem> folder) {
  Level level = {path, std::move(folder), {}};
  static_cast<void>(files_.List(AddPathToFileName(path, "*.*"), [&](const DirEntry& entry) {
    level.rest.push_back(entry);
    return true;
  }));
  levels_.push_back(std::move(level));
}

void TreeRemover::RemoveOne(const std::string& path, std::unique_ptr<OpenedItem> item) {
  const Outcome erased = item->Erase();
  if (erased.ok() || IsAbsent(erased)) return;
  Outcome left = leave_(path, std::move(item), erased);
  if (!left.ok()) return Note(std::move(left), path);
  if (waiting_.ok()) waiting_ = Outcome(erased).With("Item: ", path);
}

void TreeRemover::Note(Outcome failure, const std::string& path) {
  if (failure_.ok()) failure_ = std::move(failure).With("Item: ", path);
}

}  // namespace scourwell
