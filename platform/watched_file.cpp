#include "platform/watched_file.h"

namespace scourwell {

Outcome WatchedFile::Refresh(const std::string& first, const std::string& second,
                             const Take& take) {
  const std::uint32_t tick = clock_.Ticks();
  if (state_ != State::Unknown && tick == tick_ && first == first_ && second == second_) return {};
  tick_ = tick;
  first_ = first;
  second_ = second;
  bool changed = false;
  if (!Find(first, &changed) && (second.empty() || !Find(second, &changed))) {
    if (state_ == State::Missing) return {};
    state_ = State::Missing;
    take(std::nullopt);
    return Outcome::Failed(kFileNotFound).With("File: ", second.empty() ? first : second);
  }
  if (state_ == State::Read && !changed) return {};
  const bool known_unreadable = state_ == State::Unreadable && !changed;
  Outcome loaded = Load(take);
  return known_unreadable ? Outcome() : std::move(loaded);
}

bool WatchedFile::Find(const std::string& path, bool* changed) {
  DirEntry entry;
  if (!files_.Stat(path, &entry).ok() || entry.IsFolder()) return false;
  *changed = path != path_ || entry.size != size_ || entry.modified != modified_;
  path_ = path;
  size_ = entry.size;
  modified_ = entry.modified;
  return true;
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
