// SPDX-License-Identifier: MIT
#include "offline/offline_system.h"

#include <sys/random.h>
#include <unistd.h>

#include <algorithm>

#include "machine/environment.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr char kFolders[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
constexpr char kUserFolders[] =
    "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";
constexpr char kVersion[] = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion";
constexpr char kProfileList[] = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\ProfileList";
constexpr char kMachineVariables[] =
    "SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Environment";
constexpr char kUserVariables[] = "Environment";
constexpr int kDeepestVariable = 8;

#define ROAMING "AppData\\Roaming\\Microsoft\\Windows\\"
#define LOCAL "AppData\\Local\\Microsoft\\Windows\\"

// A folder of the shell by its number: the value that names it, and where it lies below the profile
// when none does, before Vista and since.
struct ShellFolderRow {
  int id;
  bool everybodys;
  const char* value;
  const char* old_place;
  const char* place;
};

constexpr ShellFolderRow kShellFolders[] = {
    {0, false, "Desktop", "Desktop", "Desktop"},
    {2, false, "Programs", "Start Menu\\Programs", ROAMING "Start Menu\\Programs"},
    {5, false, "Personal", "My Documents", "Documents"},
    {6, false, "Favorites", "Favorites", "Favorites"},
    {7, false, "Startup", "Start Menu\\Programs\\Startup", ROAMING "Start Menu\\Programs\\Startup"},
    {8, false, "Recent", "Recent", ROAMING "Recent"},
    {9, false, "SendTo", "SendTo", ROAMING "SendTo"},
    {11, false, "Start Menu", "Start Menu", ROAMING "Start Menu"},
    {16, false, "Desktop", "Desktop", "Desktop"},
    {19, false, "NetHood", "NetHood", ROAMING "Network Shortcuts"},
    {21, false, "Templates", "Templates", ROAMING "Templates"},
    {22, true, "Common Start Menu", "Start Menu", "Microsoft\\Windows\\Start Menu"},
    {23, true, "Common Programs", "Start Menu\\Programs",
     "Microsoft\\Windows\\Start Menu\\Programs"},
    {24, true, "Common Startup", "Start Menu\\Programs\\Startup",
     "Microsoft\\Windows\\Start Menu\\Programs\\Startup"},
    {25, true, "Common Desktop", "Desktop", "Desktop"},
    {26, false, "AppData", "Application Data", "AppData\\Roaming"},
    {27, false, "PrintHood", "PrintHood", ROAMING "Printer Shortcuts"},
    {31, true, "Common Favorites", "Favorites", "Favorites"},
    {32, false, "Cache", "Local Settings\\Temporary Internet Files",
     LOCAL "Temporary Internet Files"},
    {33, false, "Cookies", "Cookies", ROAMING "Cookies"},
    {34, false, "History", "Local Settings\\History", LOCAL "History"},
};
constexpr int kFonts = 20;

// Variables that are values of one key of the machine.
struct VariableRow {
  const char* name;
  const char* value;
};

constexpr VariableRow kVersionVariables[] = {
    {"ProgramFiles", "ProgramFilesDir"},
    {"ProgramW6432", "ProgramFilesDir"},
    {"ProgramFiles(x86)", "ProgramFilesDir (x86)"},
    {"CommonProgramFiles", "CommonFilesDir"},
    {"CommonProgramW6432", "CommonFilesDir"},
    {"CommonProgramFiles(x86)", "CommonFilesDir (x86)"},
};

}  // namespace

bool OfflineSystem::QueryVersion(unsigned record_size, VersionRecord* record) {
  if (record_size == kExtendedVersionRecord && facts_.version.platform != 2) return false;
  *record = facts_.version;
  if (record_size == kExtendedVersionRecord) return true;
  record->service_pack_major = record->service_pack_minor = record->suite_mask = 0;
  record->product_type = 0;
  return true;
}

std::string OfflineSystem::SystemFolder() {
  const char* name = facts_.version.platform == 2 ? "system32" : "SYSTEM";
  return Spelled(AddPathToFileName(windows_, name));
}

std::string OfflineSystem::Wow64Folder() {
  return facts_.is_64 ? Spelled(AddPathToFileName(windows_, "SysWOW64")) : std::string();
}

// As it is spelt on the disk, where it is there.
std::string OfflineSystem::Spelled(const std::string& path) {
  const std::string real = files_.ShortPath(path);
  return real.empty() ? path : real;
}

std::string OfflineSystem::TemporaryFolder() {
  std::string folder = user_ ? Environment("TEMP") : std::string();
  if (!IsAbsolutePath(folder)) folder = Spelled(AddPathToFileName(windows_, "Temp"));
  return EndsInSeparator(folder) ? folder : folder + kSeparator;
}

std::string OfflineSystem::ProfilesFolder() {
  const std::string named =
      Expand(TextValue(registry_, RootKey::LocalMachine, kProfileList, "ProfilesDirectory"));
  if (IsAbsolutePath(named)) return named;
  const std::string drive = windows_.substr(0, 3);
  return drive + (IsVista() ? "Users" : "Documents and Settings");
}

std::string OfflineSystem::EverybodysProfile() {
  if (facts_.version.platform != 2) return AddPathToFileName(windows_, "All Users");
  const auto value = [&](const char* name) {
    return TextValue(registry_, RootKey::LocalMachine, kProfileList, name);
  };
  if (IsVista()) {
    const std::string data = Expand(value("ProgramData"));
    return IsAbsolutePath(data) ? data : windows_.substr(0, 3) + "ProgramData";
  }
  const std::string name = value("AllUsersProfile");
  return AddPathToFileName(ProfilesFolder(), name.empty() ? "All Users" : name);
}

std::string OfflineSystem::ShellFolder(int folder_id) {
  if (folder_id == kFonts) return AddPathToFileName(windows_, "Fonts");
  const auto row = std::ranges::find(kShellFolders, folder_id, &ShellFolderRow::id);
  if (row == std::end(kShellFolders) || (!row->everybodys && !user_)) return {};
  const RootKey root = row->everybodys ? RootKey::LocalMachine : RootKey::CurrentUser;
  for (const char* key : {kUserFolders, kFolders}) {
    std::string folder = Expand(TextValue(registry_, root, key, row->value));
    if (IsAbsolutePath(folder)) return folder;
  }
  const std::string profile = row->everybodys ? EverybodysProfile() : OwnProfile();
  return AddPathToFileName(profile, IsVista() ? row->place : row->old_place);
}

// A variable may name others, and itself.
std::string OfflineSystem::Expand(std::string_view text) {
  if (depth_ >= kDeepestVariable) return std::string(text);
  ++depth_;
  std::string expanded = ExpandEnvironment(text, *this);
  --depth_;
  return expanded;
}

std::string OfflineSystem::Environment(const std::string& name) {
  const auto is = [&](const char* other) { return EqualsNoCase(name, other); };
  if (is("SystemRoot") || is("windir")) return windows_;
  if (is("SystemDrive") || is("HOMEDRIVE")) return windows_.substr(0, 2);
  if (is("USERPROFILE")) return OwnProfile();
  if (is("USERNAME")) return user_ ? user_->name : std::string();
  if (is("ALLUSERSPROFILE") || is("ProgramData")) return EverybodysProfile();
  if (is("PUBLIC")) return AddPathToFileName(ProfilesFolder(), "Public");
  if (is("APPDATA")) return ShellFolder(26);
  if (is("LOCALAPPDATA")) {
    const char* below = IsVista() ? "AppData\\Local" : "Local Settings\\Application Data";
    return user_ ? AddPathToFileName(OwnProfile(), below) : std::string();
  }
  for (const VariableRow& row : kVersionVariables) {
    if (!is(row.name)) continue;
    return Expand(TextValue(registry_, RootKey::LocalMachine, kVersion, row.value));
  }
  return Variable(name);
}

std::string OfflineSystem::Variable(const std::string& name) {
  std::string text = TextValue(registry_, RootKey::CurrentUser, kUserVariables, name);
  if (text.empty()) text = TextValue(registry_, RootKey::LocalMachine, kMachineVariables, name);
  return Expand(text);
}

std::uint32_t OfflineSystem::OwnProcessId() { return static_cast<std::uint32_t>(getpid()); }

std::string OfflineSystem::RandomBytes(std::size_t count) {
  std::string bytes(count, '\0');
  return getrandom(bytes.data(), count, 0) == static_cast<ssize_t>(count) ? bytes : std::string();
}

Outcome OfflineSystem::TerminateProcess(std::uint32_t, const std::function<bool()>&) {
  return Outcome::Failed(kInvalidCall, "The machine does not run");
}

// Nothing is in use there: what cannot be deleted now cannot be deleted later.
Outcome OfflineSystem::DeleteAtReboot(const std::string&) {
  return Outcome::Failed(kInvalidCall, "The machine does not run");
}

}  // namespace scourwell
