// SPDX-License-Identifier: MIT
#include "settings/settings.h"

#include <vector>

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
    const bool mistyped = parts_.store.IsTyped() && stored != kTrue && stored != kFalse;
    settings_.** flag = (stored.empty() || mistyped ? row.initial : stored) == kTrue;
  } else {
    settings_.*std::get<std::string AppSettings::*>(row.field) = ValueOf(row, stored);
  }
}

std::string Settings::ValueOf(const SettingRow& row, const std::string& stored) const {
  const std::string& application = parts_.folders.application;
  const auto folder = [&] {
    const std::string kept = parts_.store.FolderOf(stored);
    if (!kept.empty() && FolderExists(parts_.files, kept)) return kept;
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
  switch (row.kind) {
    case SettingKind::LogFile:
      return parts_.store.WrittenFolder(std::string(FolderPart(text)));
    case SettingKind::Folder:
    case SettingKind::OwnFolder:
      return parts_.store.WrittenFolder(text);
    default:
      return text;
  }
}

void Settings::SaveSettings() {
  parts_.log.Trap("SaveSettings", [&] { return Save(); });
}

Outcome Settings::Save() {
  const std::string major = std::to_string(parts_.version.major);
  const std::string minor = std::to_string(parts_.version.minor);
  const std::string revision = std::to_string(parts_.version.revision);
  std::vector<KeptText> texts = {{"Version", "Version", major + "." + minor + "." + revision},
                                 {"Version", "MAJOR", major},
                                 {"Version", "MINOR", minor},
                                 {"Version", "REVISION", revision},
                                 {"Version", "BUILD", "0"}};
  for (const SettingRow& row : kSettingRows) texts.push_back({row.section, row.key, TextOf(row)});
  Outcome kept = parts_.store.SetAll(texts);
  Outcome written = WriteINIString(parts_.profiles, parts_.code_pages, parts_.folders.application,
                                   "DEFINITIONS_FILE_LOCATION",
                                   parts_.store.WrittenFolder(settings_.DefinitionsFolder));
  return kept.ok() ? std::move(written) : std::move(kept);
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
