// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "backup/archive_places.h"
#include "backup/archive_writer.h"
#include "backup/registry_backup.h"
#include "backup/restore_run.h"
#include "machine/error_log.h"
#include "machine/op_sys_info.h"
#include "platform/shell.h"
#include "settings/app_settings.h"
#include "text/captions.h"

namespace scourwell {

// One archive of the backup folder.
struct BackupRow {
  std::string key;  // its file name
  std::uint64_t size = 0;
  FileTime modified = 0;
  // Where its last piece lies when it was continued outside of the backup folder; empty: nobody
  // knows.
  std::optional<std::string> elsewhere = {};
};

struct BackupReport {
  Outcome archive;                       // why there is no archive at all
  std::vector<std::size_t> failed_rows;  // of the rows given, those not (wholly) stored
  std::vector<ItemReport> failures;
};

// What is not stored, and why, one line each.
std::vector<std::string> FailureTexts(const Captions& captions, const BackupReport& report);

// The backups of the backup folder: "name.qzp" archives of files and folders, with the registry
// scripts "namekey.reg", "nameval.reg" and "nameexport.reg" (and "nameexport64.reg" for what lies
// in the 64-bit view) inside.
class Backups {
 public:
  struct Parts {
    Files& files;
    Registry& registry;
    Registry* registry64;  // null where there is only one view
    Clock& clock;
    Pump& pump;
    Shell& shell;
    System& system;
    KeptTexts& kept;
    ErrorLog& log;
    CodePages& code_pages;
    const COpSysInfo& os;
    const SystemFolders& folders;
    const AppSettings& settings;
  };

  explicit Backups(const Parts& parts) : parts_(parts) {}

  // True for a name that a file in the backup folder can have.
  bool IsUsableName(const std::string& name) const;
  bool Exists(const std::string& name) const;
  // "2004-03-05 120000", or with a number behind it where that is taken.
  std::string NameForNow() const;

  // False for what an archive cannot hold or what is not there any more.
  bool Needs(const FoundObject& object) const;
  // Stores the rows in a new archive. Rows that are neither files, folders, cookies nor registry
  // entries, and files that are gone, need no backup.
  BackupReport Create(const std::string& name, const std::vector<const Finding*>& rows,
                      ArchiveOptions options = {});

  // The archives in the order of the folder's listing, then those whose last piece lies elsewhere.
  std::vector<BackupRow> List();
  // Reads what an archive holds, for a choice of what comes back. `find` asks for pieces that lie
  // neither beside it nor in the backup folder.
  Outcome Open(const std::string& key, const FindVolume& find, std::unique_ptr<RestoreRun>* run);
  // Brings back what is chosen of it.
  Outcome Restore(RestoreRun& run, const std::vector<bool>& chosen, RestoreResult* result);
  // The volumes that lie beside it go, too.
  Outcome Delete(const std::string& key);

 private:
  std::string PathOf(std::string_view file_name) const;
  Outcome CheckFolder() const;
  Outcome Store(const std::string& name, const std::vector<const Finding*>& rows,
                ArchiveOptions options, BackupReport* report);
  Outcome StoreRow(const Finding& row, RegistryBackup* registry, ArchiveWriter* archive);
  void RememberPlace(const std::string& path);
  Outcome FindLastPiece(const std::string& key, const FindVolume& find, std::string* path);
  FindVolume InBackupFolder(FindVolume find) const;
  Outcome AddScripts(const std::string& name, const RegistryBackup& registry,
                     ArchiveWriter* archive);

  Parts parts_;
  ArchivePlaces places_{parts_.kept};
};

}  // namespace scourwell
