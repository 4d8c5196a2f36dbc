#pragma once

#include <set>
#include <string>
#include <unordered_set>

#include "definitions/loader_table.h"
#include "definitions/reference_file.h"
#include "machine/system_folders.h"
#include "platform/pump.h"
#include "text/text.h"

namespace scourwell {

// At most this many entries of a sequence are read: 0 to 10000.
inline constexpr int kMostEntries = 10001;
// The removal list and the name lists end earlier: 0 to 1000.
inline constexpr int kMostNames = 1001;

// Search values of compiled-in rows that the reference file takes back.
using WithdrawnValues = std::unordered_set<std::string, NoCaseHash, NoCaseEqual>;

// Entries that are looked up the moment they are read.
class DirectChecks {
 public:
  virtual ~DirectChecks() = default;
  // The entries of another list follow.
  virtual void BeginList() {}
  virtual void CheckFile(const std::string& spy, const std::string& path) = 0;
  virtual void CheckFolder(const std::string& spy, const std::string& path) = 0;
  virtual void CheckProcess(const std::string& spy, const std::string& process) = 0;
};

// The "loading database" window.
class LoadProgress {
 public:
  virtual ~LoadProgress() = default;
  virtual void Begin(int maximum) = 0;
  virtual void Advance() = 0;  // never called more than `maximum` times
  virtual void End() = 0;
};

// Fills the signature lists from the reference file.
class ListLoader {
 public:
  ListLoader(ReferenceFile& reference, SignatureLists& lists, DirectChecks& checks,
             LoadProgress& progress, Pump& pump, ErrorLog& log, const SystemFolders& folders)
      : reference_(reference),
        lists_(lists),
        checks_(checks),
        progress_(progress),
        pump_(pump),
        log_(log),
        folders_(folders) {}

  // Reads the loader's sequences. Each ends at its first gap; counts only size the progress bar.
  void Load(const Loader& loader);

  // What the file's section "REMO" holds.
  WithdrawnValues Withdrawn();

  // Takes the rows out of lstSearch whose sub-item 2 is withdrawn.
  void removeFromList();

 private:
  // The number of entries read.
  Outcome ReadSequence(const Sequence& sequence, int* bar_left);
  bool ReadEntry(const Sequence& sequence, int n);
  void Deliver(const Sequence& sequence, const std::string& name, const std::string& value,
               const std::string& value2);
  Outcome CheckCount(const Sequence& sequence, int entries);
  int CountOf(const Sequence& sequence);

  ReferenceFile& reference_;
  SignatureLists& lists_;
  DirectChecks& checks_;
  LoadProgress& progress_;
  Pump& pump_;
  ErrorLog& log_;
  const SystemFolders& folders_;
  std::set<std::string> reported_;  // sequences whose wrong count is on record
  unsigned reported_generation_ = 0;
};

}  // namespace scourwell
