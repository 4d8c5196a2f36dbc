// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/clock.h"
#include "platform/files.h"

namespace scourwell {

// A text file that is read again only when it is another one than before, by path, size and last
// write. The disk is asked at every clock tick, so that a burst of look-ups costs one question a
// tick and yet no look-up sees an older file than a fresh reading would show.
class WatchedFile {
 public:
  // Gets the new content, or nothing when the file has gone or cannot be read.
  using Take = std::function<void(std::optional<std::string> content)>;

  // A file larger than `limit` bytes cannot be read.
  WatchedFile(Files& files, Clock& clock, std::uint64_t limit)
      : files_(files), clock_(clock), limit_(limit) {}

  // Looks for the file at `first`, then at `second` (may be empty: nowhere), and hands its content
  // over if that is news. Fails once per change: kFileNotFound when there is no file, else why it
  // could not be read; an unreadable file is tried again at every later tick.
  Outcome Refresh(const std::string& first, const std::string& second, const Take& take);

  // Where the file was found last; empty before the first success.
  const std::string& path() const { return path_; }

 private:
  enum class State { Unknown, Missing, Unreachable, Unreadable, Read };

  Outcome Find(const std::string& path, bool* changed);
  Outcome Lose(Outcome why, const Take& take);
  Outcome Load(const Take& take);

  Files& files_;
  Clock& clock_;
  std::uint64_t limit_;
  State state_ = State::Unknown;
  std::string first_;
  std::string second_;
  std::uint32_t tick_ = 0;
  std::string path_;
  std::uint64_t size_ = 0;
  FileTime modified_ = 0;
};

}  // namespace scourwell
