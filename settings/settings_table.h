#pragma once

#include "settings/app_settings.h"

namespace scourwell {

// One yes/no setting of the store.
struct BooleanSetting {
  const char* section;
  const char* key;
  bool AppSettings::*field;
  bool true_when_empty;  // a value that was never written counts as "True"
};

// In the order in which they are read.
inline constexpr BooleanSetting kBooleanSettings[] = {
    {"AutoSave", "AutoSave", &AppSettings::AutoSave, true},
    {"UseRegEdit", "UseRegEdit", &AppSettings::UseRegEdit, true},
    {"AutoCheckForUpdate", "AutoCheckForUpdate", &AppSettings::AutoCheckForUpdate, false},
    {"ScanSections", "SpywareAdware", &AppSettings::SpywareAdware, true},
    {"ScanSections", "Dialers", &AppSettings::Dialers, true},
    {"ScanSections", "KeyLoggers", &AppSettings::KeyLoggers, true},
    {"ScanSections", "AdvancedScanning", &AppSettings::AdvancedScanning, false},
    {"ScanSections", "ExtraLogInfo", &AppSettings::ExtraLogInfo, false},
    {"ScanSections", "AllCookies", &AppSettings::AllCookies, true},
    {"ScanSections", "Trojans", &AppSettings::Trojans, true},
    {"ScanSections", "BHO", &AppSettings::BHO, true},
    {"RunStartup", "RunStartup", &AppSettings::RunStartup, false},
    {"DeleteAfterReboot", "DeleteAfterReboot", &AppSettings::DeleteAfterReboot, true},
    {"AutoRemove", "AutoRemove", &AppSettings::AutoRemove, false},
    {"Backup", "BackupBeforeRemoval", &AppSettings::BackupBeforeRemoval, true},
};

}  // namespace scourwell
