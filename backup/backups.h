// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "backup/archive_writer.h"
#include "backup/extractor.h"
#include "backup/registry_backup.h"
#include "backup/volume_reader.h"
#include "guard/path_guard.h"
#include "machine/error_log.h"
#include "machine/next_start.h"
#include "machine/op_sys_info.h"
#include "platform/shell.h"
#include "settings/app_settings.h"

namespace scourwell {

// One archive of the backup folder.
struct BackupRow {
  std::string key;  // its file name
  std::uint64_t size = 0;
  FileTime modified = 0;
};

struct BackupReport {
  Outcome archive;                       // why there is no archive at all
  std::vector<std::size_t> failed_rows;  // of the rows given, those not (wholly) stored
  std::vector<std::string> failures;     // "path: reason"
};

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
    ErrorLog& log;
    CodePages& code_pages;
    const COpSysInfo& os;
    const SystemFolders& folders;
    const AppSettings& settings;
    System& system;
  };

  explicit Backups(const Parts& parts) : parts_(parts) {}

  // True for a name that a file in the backup folder can have.
  bool IsUsableName(const std::string& name) const;
  bool Exists(const std::string& name) const;
  // "2004-03-05 120000", or with a number behind it where that is taken.
  std::string NameForNow() const;

  // Stores the rows in a new archive. Rows that are neither files, folders, cookies nor registry
  // entries, and files that are gone, need no backup.
  BackupReport Create(const std::string& name, const std::vector<const FoundObject*>& rows,
                      ArchiveOptions options = {});

  // The archives in the order of the folder's listing.
  std::vector<BackupRow> List();
  // Brings back what the archive holds: files and folders to their places, the scripts through the
  // registry editor, one after another. `find` asks for volumes that do not lie beside it.
  Outcome Restore(const std::string& key, const FindVolume& find, RestoreResult* result);
  // The volumes that lie beside it go, too.
  Outcome Delete(const std::string& key);

 private:
  std::string PathOf(std::string_view file_name) const;
  Outcome CheckFolder() const;
  void DeleteScripts();
  Outcome Store(const std::string& name, const std::vector<const FoundObject*>& rows,
                ArchiveOptions options, BackupReport* report);
  Outcome AddScripts(const std::string& name, const RegistryBackup& registry,
                     ArchiveWriter* archive);
  void Import(const std::string& script);
  std::string Importer64() const;

  Parts parts_;
};

}  // namespace scourwell
