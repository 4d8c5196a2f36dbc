// SPDX-License-Identifier: MIT
#include "settings/settings.h"

#include "machine/cregister.h"
#include "machine/file_utils.h"
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
  return Outcome::OfRegistry(status).With("Section: ", section).With("Key: ", key);
}

void Settings::ReadLanguage() {
  for (const SettingRow& row : kSettingRows) {
    if (row.field == decltype(row.field)(&AppSettings::LanguageFile)) Load(row);
  }
}

void Settings::LoadSettings() {
  parts_.log.Trap("LoadSettings", [&] {
    for (const SettingRow& row : kSettingRows) Load(row);
    settings_.CookiesFolder = CookiesFolder() + "\\";
  });
}

// The copy in the registry may name any folder: it counts only where the shell names none.
std::string Settings::CookiesFolder() const {
  const std::string& known = parts_.folders.Special(SpecialFolder::Cookies);
  return known.empty() ? CRegister(parts_.registry)
                             .QueryString(RootKey::CurrentUser, kShellFolders, "Cookies")
                       : known;
}

void Settings::Load(const SettingRow& row) {
  const std::string stored = parts_.store.Get(row.section, row.key);
  if (const auto* flag = std::get_if<bool AppSettings::*>(&row.field)) {
    settings_.** flag = (stored.empty() ? row.initial : stored) == kTrue;
  } else {
    settings_.*std::get<std::string AppSettings::*>(row.field) = ValueOf(row, stored);
  }
}

std::string Settings::ValueOf(const SettingRow& row, const std::string& stored) const {
  const std::string& application = parts_.folders.application;
  const auto folder = [&] {
    if (!stored.empty() && FolderExists(parts_.files, stored)) return stored;
    return *row.initial ? AddPathToFileName(application, row.initial) : application;
  };
  switch (row.kind) {
    case SettingKind::Folder:
      return folder();
    case SettingKind::LogFile:
      return ScanLogPath(folder(), parts_.clock.Now());
    case SettingKind::OwnFolder:
      return application;
    default:
      return stored.empty() ? row.initial : stored;
  }
}

std::string Settings::TextOf(const SettingRow& row) const {
  if (const auto* flag = std::get_if<bool AppSettings::*>(&row.field)) {
    return settings_.**flag ? kTrue : kFalse;
  }
  const std::string& text = settings_.*std::get<std::string AppSettings::*>(row.field);
  return row.kind == SettingKind::LogFile ? std::string(FolderPart(text)) : text;
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
  const std::string major = std::to_string(parts_.version.major);
  const std::string minor = std::to_string(parts_.version.minor);
  const std::string revision = std::to_string(parts_.version.revision);
  set("Version", "Version", major + "." + minor + "." + revision);
  set("Version", "MAJOR", major);
  set("Version", "MINOR", minor);
  set("Version", "REVISION", revision);
  set("Version", "BUILD", "0");
  for (const SettingRow& row : kSettingRows) set(row.section, row.key, TextOf(row));
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
