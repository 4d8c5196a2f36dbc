// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "machine/error_log.h"
#include "machine/system_folders.h"
#include "platform/profiles.h"
#include "platform/registry.h"
#include "settings/app_settings.h"
#include "settings/kept_texts.h"
#include "settings/program_version.h"
#include "settings/settings_table.h"

namespace scourwell {

// The per-user store: string values under HKEY_CURRENT_USER, one key per section.
class SettingsStore : public KeptTexts {
 public:
  explicit SettingsStore(Registry& registry) : registry_(registry) {}

  std::string Get(const std::string& section, const std::string& key) override;
  Outcome Set(const std::string& section, const std::string& key, const std::string& text) override;

 private:
  Registry& registry_;
};

// Fills and writes AppSettings.
class Settings {
 public:
  struct Parts {
    KeptTexts& store;
    Registry& registry;
    Profiles& profiles;
    Files& files;
    Clock& clock;
    CodePages& code_pages;
    ErrorLog& log;
    const SystemFolders& folders;
    ProgramVersion version;
  };

  Settings(const Parts& parts, AppSettings& settings) : parts_(parts), settings_(settings) {}

  void ReadLanguage();
  // Reads every setting, repairing missing and invalid values with their defaults. The caller
  // saves afterwards, so that repaired defaults are stored at once.
  void LoadSettings();
  void SaveSettings();

 private:
  void Load(const SettingRow& row);
  std::string CookiesFolder() const;
  std::string ValueOf(const SettingRow& row, const std::string& stored) const;
  std::string TextOf(const SettingRow& row) const;
  Outcome Save();

  Parts parts_;
  AppSettings& settings_;
};

// folder + "\ScanLogdd-mm-yy-FFFFF.txt"; FFFFF is the time of day in hundred-thousandths of a
// day, rounded half to even: 0 to 100000.
std::string ScanLogPath(const std::string& folder, const LocalTime& now);

}  // namespace scourwell
