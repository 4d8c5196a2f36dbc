// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "backup/backups.h"
#include "offline/machine_texts.h"
#include "offline/offline_machine.h"
#include "results/removal.h"
#include "settings/kept_texts.h"

namespace scourwell {

// Takes what a scan found off a machine that does not run, and brings it back. Everything is backed
// up first; what could not be stays. The same guard as on a running machine judges each deletion,
// for every user's folders.
class OfflineRemoval {
 public:
  struct Parts {
    OfflineMachine& machine;
    Clock& clock;
    Pump& pump;
    ErrorLog& log;
    const Captions& captions;
    AppSettings settings;
    KeptTexts& kept;
    // Where archives lie, and the script of what can only be done on the machine itself; a path of
    // the machine's files(), outside of its drives (PosixFiles::Adopt).
    std::string folder;
  };
  struct Result {
    BackupReport backup;
    RemovalReport removal;  // in the order of the findings
    Outcome registry;       // why the changed registry could not be saved
    std::string script;     // what is to be run on the machine itself; empty: nothing
    bool stopped = false;   // before everything was tried
  };

  explicit OfflineRemoval(Parts parts);

  // Why nothing can be removed, to be told before it begins.
  Outcome MayBegin() const;
  // Backs the findings up in a new archive of that name and deletes them.
  Result Remove(const std::string& name, const std::vector<Finding>& findings);

  Backups& backups() { return backups_; }
  // Brings back what is chosen of an archive that backups() has opened, and saves the registry.
  Outcome Restore(RestoreRun& run, const std::vector<bool>& chosen, RestoreResult* result);

 private:
  struct Row;

  Outcome JudgeForEverybody(const FoundObject& object);
  void Delete(std::vector<Row>* rows, Result* result);
  void DoubtGone(std::vector<Row>* rows);
  void SaveRegistry(std::vector<Row>* rows, Result* result);

  Parts parts_;
  MachineTexts kept_;
  SystemFolders folders_;             // of the first user
  std::vector<SystemFolders> users_;  // of all of them
  Backups backups_;
};

}  // namespace scourwell
