// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace scourwell {

// What a stored text means, and what takes its place while there is none.
enum class SettingKind {
  Flag,       // "True" alone is true
  Pack,       // the file name of a language pack
  Mark,       // "y", or another text
  Folder,     // must be there; else the program's own folder, joined with the text of the row
  LogFile,    // a folder like that, to which each run adds the name of its log
  OwnFolder,  // the program's, for other programs: written and never read back
};

// One row a setting, in the order in which they are stored, and the only place to touch when one
// is added: its kind, its name in AppSettings, its section and key in the store, the text that
// counts while none is stored, and the control of the options dialog that edits it. HIDDEN rows
// have no control. Where a control stands in the dialog is said in shell/options_table.h.
// clang-format off
#define SCOURWELL_SETTINGS(EDITED, HIDDEN)                                                       \
  EDITED(Pack, LanguageFile, "Language", "Name", "English.ini", CmbLang)                         \
  EDITED(Mark, MarkChecked, "Mark", "Checked", "y", chkMarkChecked)                              \
  EDITED(Flag, AutoSave, "AutoSave", "AutoSave", "True", chkAutosaveLog)                         \
  EDITED(Flag, UseRegEdit, "UseRegEdit", "UseRegEdit", "True", chkUseRegEdit)                    \
  EDITED(Flag, AutoCheckForUpdate, "AutoCheckForUpdate", "AutoCheckForUpdate", "False",          \
         chkAutoCheckForUpdate)                                                                  \
  EDITED(Flag, SpywareAdware, "ScanSections", "SpywareAdware", "True", chkSpywareAdware)         \
  EDITED(Flag, Dialers, "ScanSections", "Dialers", "True", chkDialers)                           \
  EDITED(Flag, KeyLoggers, "ScanSections", "KeyLoggers", "True", chkKeyLoggers)                  \
  EDITED(Flag, AdvancedScanning, "ScanSections", "AdvancedScanning", "False",                    \
         chkAdvancedScanning)                                                                    \
  EDITED(Flag, ExtraLogInfo, "ScanSections", "ExtraLogInfo", "False", chkExtraLogInfo)           \
  EDITED(Flag, AllCookies, "ScanSections", "AllCookies", "True", chkAllCookies)                  \
  EDITED(Flag, Trojans, "ScanSections", "Trojans", "True", chkTrojans)                           \
  EDITED(Flag, BHO, "ScanSections", "BHO", "True", chkBHO)                                       \
  EDITED(Flag, RunStartup, "RunStartup", "RunStartup", "False", chkScanStartup)                  \
  EDITED(LogFile, LogFilePath, "Path", "LogPath", "", txtLogfiles)                               \
  EDITED(Folder, BackupFolder, "Path", "BackupPath", "", txtBackup)                              \
  EDITED(Flag, DeleteAfterReboot, "DeleteAfterReboot", "DeleteAfterReboot", "True",              \
         ChkRemoveFile)                                                                          \
  EDITED(Flag, AutoRemove, "AutoRemove", "AutoRemove", "False", ChkAutoRemove)                   \
  HIDDEN(OwnFolder, InstallFolder, "Path", "Install", "")                                        \
  EDITED(Folder, DefinitionsFolder, "Path", "DefinitionsPath", "Ini", txtRefFileLocation)        \
  EDITED(Flag, BackupBeforeRemoval, "Backup", "BackupBeforeRemoval", "True",                     \
         chkBackupBeforeRemoval)
// clang-format on

// What AppSettings keeps, and what the dialog's control shows.
template <SettingKind>
struct SettingTypes {
  using Value = std::string;
  using Control = std::string;
};
template <>
struct SettingTypes<SettingKind::Flag> {
  using Value = bool;
  using Control = bool;
};
template <>
struct SettingTypes<SettingKind::Mark> {
  using Value = std::string;
  using Control = bool;
};

}  // namespace scourwell
