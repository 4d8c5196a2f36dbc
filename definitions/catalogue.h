// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>

#include "definitions/definition.h"

namespace scourwell {

// At most this many entries of a sequence are read: 0 to 10000.
inline constexpr int kMostEntries = 10001;
// The removal list and the name lists end earlier: 0 to 1000.
inline constexpr int kMostNames = 1001;

// What a source of definitions is about. The first five are switched on and off in the settings of
// the scan.
enum class Family : std::uint8_t {
  Trojans,
  Dialers,
  Hijackers,
  KeyLoggers,
  Spyware,
  Cookies,
  Withdrawn,
  Release,
  Categories,
};
inline constexpr std::size_t kFamilies = 9;

// One numbered sequence of the reference file. The keys of an entry are its number and a suffix.
struct Sequence {
  const char* loader;  // the procedure that reads it, as error records name it
  const char* section;
  std::array<const char*, 3> keys;  // suffixes: spy, value, second value; null where there is none
  const char* count_key;            // in section "NTOT"; null: not counted
  DefinitionKind kind;
  std::optional<Family> family = std::nullopt;  // of file and folder sequences
  int most = kMostEntries;                      // entries that are read
};

// All of them, in the order in which files are written; what one loader reads stands together.
std::span<const Sequence> Catalogue();

// The sequences that one procedure reads, in order.
struct Loader {
  const char* name;
  std::span<const Sequence> sequences;
};

extern const Loader kUpdateTrojanList;
extern const Loader kUpdateDialersFileList;
extern const Loader kUpdateDialersFolderList;
extern const Loader kUpdateHijackersFileList;
extern const Loader kUpdateHijackersFolderList;
extern const Loader kUpdateKeyLoggersFileList;
extern const Loader kUpdateKeyLoggersFolderList;
extern const Loader kUpdateSpyFileList;
extern const Loader kUpdateSpyFolderList;
extern const Loader kUpdateRegistrySVList;
extern const Loader kUpdateMemoryList;
extern const Loader kUpdateRegistryKList;
extern const Loader kUpdateRegistryKOList;
extern const Loader kUpdateCookieList;
extern const Loader kUpdateSearchByCompanyList;
extern const Loader kUpdateSearchByOriginalFileName;
extern const Loader kUpdateSearchByInternalFileName;
extern const Loader kUpdateSearchByProductName;
extern const Loader kUpdateSearchByFileDescription;
extern const Loader kUpdateSearchByFileChecSum;
// Lists of names, read by who needs them.
extern const Loader kRemoveFromList;
extern const Loader kUpdateWildcardList;
extern const Loader kUpdateExactSearchList;
extern const Loader kSpyCategories;

// The single values of a release, as a reference file and a source call them.
struct ReleaseValue {
  const char* section;
  const char* key;
  const char* word;
};
inline constexpr std::array<ReleaseValue, 4> kReleaseValues = {{
    {"SETTINGS", "UPDATE-FILE-NUMBER", "number"},
    {"SPYWARE DEFINITIONS UPDATED", "SDU0", "updated"},
    {"SPYWARE DEFINITIONS ADDED", "SDA0", "added"},
    {"SPYWARE DEFINITIONS REMOVED", "SDR0", "removed"},
}};

}  // namespace scourwell
