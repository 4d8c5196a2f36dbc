#pragma once

#include <span>

#include "definitions/signature_list.h"

namespace scourwell {

// What becomes of an entry of a sequence.
enum class EntryTarget {
  Row,           // FillListBox: type, name, value
  KeyRow,        // FillListBoxRegistrySType: value = key path
  ValueRow,      // FillListBoxRegistryVType: value = key path, value2 = value name
  ChecksumRow,   // FillListBox: type = name, name = value, value = value2
  DirectFile,    // checked at once
  DirectFolder,  // checked at once
  Process,       // matched at once with the running processes
};

// One numbered sequence of the reference file. An entry's keys are its number and a suffix.
struct Sequence {
  const char* section;
  const char* name_key;
  const char* value_key;
  const char* value2_key;  // null: entries have two keys only
  const char* count_key;   // in section "NTOT"
  EntryTarget target;
  SignatureList SignatureLists::*list;  // null for direct entries
  const char* type;                     // row type; null where the row text is a key path
};

// A loader: the sequences that one procedure of the scan reads, in order.
struct Loader {
  const char* name;
  std::span<const Sequence> sequences;
  bool clears_first = false;  // the lists of the version information are refilled, not extended
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

}  // namespace scourwell
