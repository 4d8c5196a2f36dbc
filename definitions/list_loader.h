// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <set>
#include <string>

#include "definitions/catalogue.h"
#include "definitions/kinds.h"
#include "definitions/reference_file.h"
#include "machine/system_folders.h"
#include "platform/pump.h"
#include "text/text.h"

namespace scourwell {

// The "loading database" window.
class LoadProgress {
 public:
  virtual ~LoadProgress() = default;
  virtual void Begin(int maximum) = 0;
  virtual void Advance() = 0;  // never called more than `maximum` times
  virtual void End() = 0;
};

// The texts of entry `n`: spy, value, second value. No value at the end of the sequence: a key of
// the entry is absent or empty.
using EntryTexts = std::array<std::string, 3>;
std::optional<EntryTexts> ReadEntry(ReferenceFile& reference, const Sequence& sequence, int n);

// Fills the definition lists from the reference file, and only that: looking for what they name is
// up to the phases.
class ListLoader {
 public:
  ListLoader(ReferenceFile& reference, DefinitionLists& lists, LoadProgress& progress, Pump& pump,
             ErrorLog& log, const SystemFolders& folders)
      : reference_(reference),
        lists_(lists),
        progress_(progress),
        pump_(pump),
        log_(log),
        folders_(folders) {}

  // Reads the loader's sequences. Each ends at its first gap; counts only size the progress bar.
  void Load(const Loader& loader);

  // Takes out what the file withdraws: searched files and folders, cookies and processes by their
  // names.
  void removeFromList();

 private:
  Outcome ReadSequence(const Sequence& sequence, int* bar_left);
  Outcome CheckCount(const Sequence& sequence, int entries);
  int CountOf(const Sequence& sequence);

  ReferenceFile& reference_;
  DefinitionLists& lists_;
  LoadProgress& progress_;
  Pump& pump_;
  ErrorLog& log_;
  const SystemFolders& folders_;
  std::set<std::string> reported_;  // sequences whose wrong count is on record
  unsigned reported_generation_ = 0;
};

}  // namespace scourwell
