#include "settings/settings.h"

#include "machine/cregister.h"
#include "machine/file_utils.h"
#include "settings/settings_table.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr char kStoreKey[] = "Software\\Scourwell\\";
constexpr char kShellFolders[] =
    "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
constexpr char kTrue[] = "True";
constexpr char kFalse[] = "False";

constexpr std::uint64_t kMillisecondsOfDay = 24ull * 60 * 60 * 1000;

}  // namespace

std::string SettingsStore::Get(const std::string& section, const std::string& key) {
  return CRegister(registry_).QueryString(RootKey::CurrentUser, kStoreKey + section, key);
}

Outcome SettingsStore::Set(const std::string& section, const std::string& key,
                           const std::string& text) {
  const RegStatus status =
      CRegister(registry_).SetString(RootKey::CurrentUser, kStoreKey + section, key, text);
  if (status == kRegOk) return {};
  return Outcome::Failed(status == kRegAccessDenied ? kPermissionDenied : status)
      .With("Section: ", section)
      .With("Key: ", key);
}

void Settings::ReadLanguage() {
  settings_.LanguageFile = parts_.store.Get("Language", "Name");
  if (settings_.LanguageFile.empty()) settings_.LanguageFile = "English.ini";
}

void Settings::LoadSettings() {
  parts_.log.Trap("LoadSettings", [&] {
    ReadLanguage();
    settings_.MarkChecked = parts_.store.Get("Mark", "Checked");
    if (settings_.MarkChecked.empty()) settings_.MarkChecked = "y";
    LoadBooleans();
    const std::string& application = parts_.folders.application;
    settings_.LogFilePath = ScanLogPath(FolderOr("LogPath", application), parts_.clock.Now());
    settings_.BackupFolder = FolderOr("BackupPath", application);
    settings_.DefinitionsFolder =
        FolderOr("DefinitionsPath", AddPathToFileName(application, "Ini"));
    settings_.CookiesFolder =
        CRegister(parts_.registry).QueryString(RootKey::CurrentUser, kShellFolders, "Cookies") +
        "\\";
  });
}

void Settings::LoadBooleans() {
  for (const BooleanSetting& setting : kBooleanSettings) {
    const std::string text = parts_.store.Get(setting.section, setting.key);
    settings_.*setting.field = text == kTrue || (text.empty() && setting.true_when_empty);
  }
}

// The folder that "Path" names under `key`, or the fallback when it is not there.
std::string Settings::FolderOr(const char* key, const std::string& fallback) {
  const std::string folder = parts_.store.Get("Path", key);
  return folder.empty() || !FolderExists(parts_.files, folder) ? fallback : folder;
}

void Settings::SaveSettings() {
  parts_.log.Trap("SaveSettings", [&] { return Save(); });
}

// Every value is tried, whatever becomes of the others; the first failure is the one reported.
Outcome Settings::Save() {
  Outcome first;
  const auto set = [&](const char* section, const char* key, const std::string& text) {
    Outcome written = parts_.store.Set(section, key, text);
    if (first.ok()) first = std::move(written);
  };
  const auto set_booleans = [&](std::initializer_list<bool AppSettings::*> fields) {
    for (bool AppSettings::*field : fields) {
      for (const BooleanSetting& setting : kBooleanSettings) {
        if (setting.field == field) {
          set(setting.section, setting.key, settings_.*field ? kTrue : kFalse);
        }
      }
    }
  };
  const std::string major = std::to_string(parts_.version.major);
  const std::string minor = std::to_string(parts_.version.minor);
  const std::string revision = std::to_string(parts_.version.revision);
  set("Version", "Version", major + "." + minor + "." + revision);
  set("Version", "MAJOR", major);
  set("Version", "MINOR", minor);
  set("Version", "REVISION", revision);
  set("Version", "BUILD", "0");
  set("Language", "Name", settings_.LanguageFile);
  set("Mark", "Checked", settings_.MarkChecked);
  set_booleans({&AppSettings::AutoSave, &AppSettings::UseRegEdit, &AppSettings::AutoCheckForUpdate,
                &AppSettings::SpywareAdware, &AppSettings::Dialers, &AppSettings::KeyLoggers,
                &AppSettings::AdvancedScanning, &AppSettings::ExtraLogInfo,
                &AppSettings::AllCookies, &AppSettings::Trojans, &AppSettings::BHO,
                &AppSettings::RunStartup});
  set("Path", "LogPath", std::string(FolderPart(settings_.LogFilePath)));
  set("Path", "BackupPath", settings_.BackupFolder);
  set_booleans({&AppSettings::DeleteAfterReboot, &AppSettings::AutoRemove});
  set("Path", "Install", parts_.folders.application);
  set("Path", "DefinitionsPath", settings_.DefinitionsFolder);
  set_booleans({&AppSettings::BackupBeforeRemoval});
  Outcome written = WriteINIString(parts_.profiles, parts_.code_pages, parts_.folders.application,
                                   "DEFINITIONS_FILE_LOCATION", settings_.DefinitionsFolder);
  return first.ok() ? std::move(written) : std::move(first);
}

std::string ScanLogPath(const std::string& folder, const LocalTime& now) {
  const std::uint64_t milliseconds =
      ((static_cast<std::uint64_t>(now.hour) * 60 + static_cast<std::uint64_t>(now.minute)) * 60 +
       static_cast<std::uint64_t>(now.second)) *
          1000 +
      static_cast<std::uint64_t>(now.millisecond);
  const std::uint64_t scaled = milliseconds * 100000;
  std::uint64_t fraction = scaled / kMillisecondsOfDay;
  const std::uint64_t twice_rest = scaled % kMillisecondsOfDay * 2;
  if (twice_rest > kMillisecondsOfDay || (twice_rest == kMillisecondsOfDay && fraction % 2 == 1)) {
    ++fraction;
  }
  const std::string name = "ScanLog" + Padded(static_cast<unsigned>(now.day), 2) + "-" +
                           Padded(static_cast<unsigned>(now.month), 2) + "-" +
                           Padded(static_cast<unsigned>(now.year % 100), 2) + "-" +
                           std::to_string(fraction) + ".txt";
  return AddPathToFileName(folder, name);
}

}  // namespace scourwell
