// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/system.h"
#include "settings/kept_texts.h"

namespace scourwell {

// Where the last piece of an archive lies that was continued outside of the backup folder.
struct ArchivePlace {
  std::string key;  // its file name
  std::string folder;
  std::uint64_t size = 0;
  FileTime modified = 0;
};

// Remembers such archives from run to run.
class ArchivePlaces {
 public:
  explicit ArchivePlaces(KeptTexts& kept) : kept_(kept) {}

  std::vector<ArchivePlace> All();
  std::optional<ArchivePlace> Find(const std::string& key);
  // Replaces what is known of that archive.
  Outcome Remember(const ArchivePlace& place);
  Outcome Forget(const std::string& key);

 private:
  Outcome Store(const std::vector<ArchivePlace>& places);

  KeptTexts& kept_;
};

// Where the settings store keeps that key.
inline constexpr char kMarkSection[] = "Backup";
inline constexpr char kMarkKey[] = "MachineKey";

// The key by which this machine knows its own archives again; made when there is none. Empty when
// it cannot be kept.
std::string KeyOfMachine(KeptTexts& kept, System& system);

}  // namespace scourwell
