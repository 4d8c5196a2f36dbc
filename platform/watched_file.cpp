#include "platform/watched_file.h"

namespace scourwell {

WatchedFile::State WatchedFile::Look(const std::string& first, const std::string& second) {
  vanished_ = false;
  const std::uint32_t tick = clock_.Ticks();
  if (looked_ && tick == tick_ && first == first_ && second == second_) {
    return present_ ? State::Same : State::Missing;
  }
  const bool was_present = present_;
  const bool first_look = !looked_;
  looked_ = true;
  tick_ = tick;
  first_ = first;
  second_ = second;
  changed_ = false;
  present_ = Find(first) || (!second.empty() && second != first && Find(second));
  if (!present_) {
    vanished_ = was_present || first_look;
    return State::Missing;
  }
  return changed_ || !was_present ? State::Changed : State::Same;
}

bool WatchedFile::Find(const std::string& path) {
  DirEntry entry;
  if (!files_.Stat(path, &entry).ok() || entry.IsFolder()) return false;
  changed_ = path != path_ || entry.size != size_ || entry.modified != modified_;
  path_ = path;
  size_ = entry.size;
  modified_ = entry.modified;
  return true;
}

void WatchedFile::Forget() {
  looked_ = false;
  present_ = false;
}

}  // namespace scourwell
