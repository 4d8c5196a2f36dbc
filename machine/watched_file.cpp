// SPDX-License-Identifier: MIT
#include "machine/watched_file.h"

namespace scourwell {

Outcome WatchedFile::Refresh(const std::string& first, const std::string& second,
                             const Take& take) {
  const std::uint32_t tick = clock_.Ticks();
  if (state_ != State::Unknown && tick == tick_ && first == first_ && second == second_) return {};
  tick_ = tick;
  first_ = first;
  second_ = second;
  bool changed = false;
  Outcome found = Find(first, &changed);
  if (!found.ok() && !second.empty()) {
    // The one of the two that may be there tells what is wrong.
    Outcome other = Find(second, &changed);
    if (other.ok() || found.code() == kFileNotFound) found = std::move(other);
  }
  if (!found.ok()) return Lose(std::move(found), take);
  if (state_ == State::Read && !changed) return {};
  const bool known_unreadable = state_ == State::Unreadable && !changed;
  Outcome loaded = Load(take);
  return known_unreadable ? Outcome() : std::move(loaded);
}

Outcome WatchedFile::Find(const std::string& path, bool* changed) {
  DirEntry entry;
  Outcome asked = files_.Stat(path, &entry);
  if (asked.ok() && entry.IsFolder()) asked = Outcome::Failed(kFileNotFound);
  if (!asked.ok()) return std::move(asked).With("File: ", path);
  *changed = path != path_ || entry.size != size_ || entry.modified != modified_;
  path_ = path;
  size_ = entry.size;
  modified_ = entry.modified;
  return {};
}

// There is no file, or nobody can tell.
Outcome WatchedFile::Lose(Outcome why, const Take& take) {
  const State state = why.code() == kFileNotFound ? State::Missing : State::Unreachable;
  if (state_ == state) return {};
  state_ = state;
  take(std::nullopt);
  return why;
}

Outcome WatchedFile::Load(const Take& take) {
  std::string content;
  Outcome read = files_.Read(path_, limit_, &content);
  state_ = read.ok() ? State::Read : State::Unreadable;
  if (!read.ok()) {
    take(std::nullopt);
    return std::move(read).With("File: ", path_);
  }
  take(std::move(content));
  return {};
}

}  // namespace scourwell
