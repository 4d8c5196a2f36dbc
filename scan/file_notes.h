// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "scan/advanced_scan.h"
#include "scan/name_search.h"

namespace scourwell {

// What the second pass has to look at in one folder.
struct FolderNote {
  std::string folder;
  std::string only;      // the one file there that is to be scanned; empty: all of them
  std::size_t root = 0;  // of the walk
  // What the walk had seen with this folder.
  std::uint32_t folders = 0;
  std::uint32_t files = 0;
  std::vector<NameMatch> matches;
  std::vector<AdvancedScan::Candidate> programs;

  // Without meaning when there is nothing to look at.
  bool empty() const { return matches.empty() && programs.empty(); }
};

// What the walk over the folders keeps for the pass over the files: the few folders in which there
// is something to look at. The room is small; what does not fit has to be listed again.
class FileNotes {
 public:
  static constexpr std::size_t kMostBytes = 4 << 20;

  explicit FileNotes(std::size_t most_bytes = kMostBytes) : most_bytes_(most_bytes) {}

  // False when the note does not fit any more.
  bool Add(FolderNote note);
  auto begin() { return notes_.begin(); }
  auto end() { return notes_.end(); }
  // Programs and folders to look at.
  std::uint32_t steps() const { return steps_; }

 private:
  std::size_t most_bytes_;
  std::size_t bytes_ = 0;
  std::uint32_t steps_ = 0;
  std::deque<FolderNote> notes_;
};

}  // namespace scourwell
