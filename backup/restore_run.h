// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "backup/archive_reader.h"
#include "backup/extractor.h"
#include "backup/registry_restore.h"
#include "backup/restore_rules.h"
#include "machine/error_log.h"
#include "machine/next_start.h"
#include "machine/op_sys_info.h"
#include "platform/shell.h"
#include "scan/finding.h"

namespace scourwell {

// One thing that a backup can bring back.
struct BackupItem {
  FoundObject object;  // a file, folder, key or value
  std::string spy;     // empty: the archive does not know it
  std::uint64_t size = 0;
  ItemState state = ItemState::Missing;
  bool starts_program = false;  // that the archive itself does not bring
  Outcome refused;              // why it is not restored
};

// One restore of one archive: shows what it holds, then brings back what was chosen of it.
class RestoreRun {
 public:
  struct Parts {
    Files& files;
    Registry& registry;
    Registry* registry64;
    System& system;
    Pump& pump;
    Shell& shell;
    ErrorLog& log;
    CodePages& code_pages;
    const COpSysInfo& os;
    const SystemFolders& folders;
    std::string scratch;  // the folder for what the registry editor reads
    std::string key;      // of this machine
  };

  explicit RestoreRun(Parts parts);

  // Once. Reads the list and the scripts.
  Outcome Open(const std::string& path, const FindVolume& find);
  // True unless the archive bears the mark of this machine.
  bool foreign() const { return !archive_.made_here(); }
  const std::vector<BackupItem>& items() const { return items_; }
  // Everything but what would start a program that a foreign archive does not bring.
  std::vector<bool> AllButDoubtful() const;
  // Once: the items whose mark in `chosen` is set. What is not back afterwards is listed with its
  // reason. A failure means that the program is closing.
  Outcome Restore(const std::vector<bool>& chosen, RestoreResult* result);

  // Erases the scripts that an earlier run left to the registry editor, and no others.
  static void EraseScripts(Files& files, const std::string& folder, ErrorLog& log);

 private:
  Outcome ReadScripts();
  void AddFileItems();
  void AddRegistryItems();
  ItemState StateOf(const ArchiveItem& item);
  bool BringsProgramOf(const RegValue& value) const;
  std::string SpyOf(std::string_view place) const;
  std::vector<ItemReport> RestoreFiles(const std::vector<bool>& chosen);
  void RestoreRegistry(const std::vector<bool>& chosen, RestoreResult* result);
  Outcome RunEditor(const std::string& name, const RegScript& script);
  std::string CommandFor(const std::string& name, const std::string& path) const;

  Parts parts_;
  ArchiveReader archive_;
  NextStart next_start_;
  std::unique_ptr<RestoreRules> rules_;
  std::unique_ptr<RegistryRestore> registry_;
  std::unique_ptr<Extractor> extractor_;
  std::vector<std::string> scripts_;    // names
  std::vector<ItemReport> unreadable_;  // scripts
  std::vector<std::size_t> numbers_;    // in the archive, of the items that are files and folders
  std::vector<BackupItem> items_;       // those first, then what the scripts bring
};

}  // namespace scourwell
