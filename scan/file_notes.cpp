// SPDX-License-Identifier: MIT
#include "scan/file_notes.h"

namespace scourwell {
namespace {

// Each block that is asked for costs about this much beside its content.
constexpr std::size_t kBlockCost = 16;

std::size_t Cost(const std::string& text) { return text.capacity() + kBlockCost; }

std::size_t Cost(const FolderNote& note) {
  std::size_t bytes = sizeof note + Cost(note.folder) + Cost(note.only) + 2 * kBlockCost;
  bytes += note.matches.capacity() * sizeof(NameMatch);
  for (const NameMatch& match : note.matches) bytes += Cost(match.name);
  bytes += note.programs.capacity() * sizeof(AdvancedScan::Candidate);
  for (const AdvancedScan::Candidate& program : note.programs) bytes += Cost(program.name);
  return bytes;
}

}  // namespace

bool FileNotes::Add(FolderNote note) {
  const std::size_t cost = Cost(note);
  if (cost > most_bytes_ - bytes_) return false;
  bytes_ += cost;
  steps_ += static_cast<std::uint32_t>(note.programs.size()) + 1;
  notes_.push_back(std::move(note));
  return true;
}

}  // namespace scourwell
