#pragma once

#include <string>

namespace scourwell {

// The one settings record of the process. It lies at the bottom because every room reads it;
// loading and saving belong to the shell.
struct AppSettings {
  std::string LanguageFile;  // file name of the language pack inside "Lang"
  std::string MarkChecked;   // "y": detections arrive ticked
  bool AutoSave = false;
  bool UseRegEdit = false;
  bool AutoCheckForUpdate = false;
  bool SpywareAdware = false;
  bool Dialers = false;
  bool KeyLoggers = false;
  bool Trojans = false;
  bool BHO = false;
  bool AllCookies = false;
  bool AdvancedScanning = false;
  bool ExtraLogInfo = false;
  bool RunStartup = false;
  bool DeleteAfterReboot = false;
  bool AutoRemove = false;
  bool BackupBeforeRemoval = false;
  std::string LogFilePath;        // this run's scan log
  std::string BackupFolder;       // folder of the backup archives
  std::string DefinitionsFolder;  // folder of the definitions reference file
  std::string CookiesFolder;      // ends in "\"
};

}  // namespace scourwell
