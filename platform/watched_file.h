#pragma once

#include <cstdint>
#include <string>

#include "platform/clock.h"
#include "platform/files.h"

namespace scourwell {

// Tells whether a file is still the one that was read last, by path, size and last write. The
// disk is asked again at every clock tick, so that a burst of look-ups costs one question a tick
// and yet no look-up sees an older file than a fresh reading would show.
class WatchedFile {
 public:
  WatchedFile(Files& files, Clock& clock) : files_(files), clock_(clock) {}

  enum class State { Same, Changed, Missing };

  // Looks for the file at `first`, then at `second` (may be empty: nowhere). Changed is answered
  // once for each change, appearing and coming back included; so is the first Missing after a
  // presence, by `vanished`.
  State Look(const std::string& first, const std::string& second);

  const std::string& path() const { return path_; }
  bool vanished() const { return vanished_; }
  // Forgets what was seen: the next look answers Changed again if the file is there.
  void Forget();

 private:
  bool Find(const std::string& path);

  Files& files_;
  Clock& clock_;
  std::string first_;
  std::string second_;
  std::string path_;
  std::uint64_t size_ = 0;
  FileTime modified_ = 0;
  std::uint32_t tick_ = 0;
  bool looked_ = false;
  bool present_ = false;
  bool vanished_ = false;
  bool changed_ = false;
};

}  // namespace scourwell
