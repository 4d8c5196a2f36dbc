// SPDX-License-Identifier: MIT
#include "machine/system_folders.h"

#include <algorithm>

#include "machine/cregister.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

// The shell's folder identifiers, in the order of SpecialFolder.
constexpr int kFolderIds[kSpecialFolders] = {0,  2,  5,  6,  7,  8,  9,  11, 16, 19, 20,
                                             21, 22, 23, 24, 25, 26, 27, 31, 32, 33, 34};

constexpr char kShellFoldersKey[] =
    "\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
constexpr char kCurrentVersionKey[] = "\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion";

std::string Bare(std::string_view path) {
  path = TrimBlanks(TrimNull(path));
  if (EndsInSeparator(path)) path.remove_suffix(1);
  return std::string(path);
}

std::string getWindowsFolder(System& system, const COpSysInfo& os) {
  std::string folder(TrimBlanks(TrimNull(system.WindowsFolder())));
  if (folder.empty()) folder = os.IsWinNT() && !os.IsWin2K() ? "C:\\WINNT" : "C:\\WINDOWS";
  return folder;
}

std::string getSystemFolder(System& system, const COpSysInfo& os, const std::string& windows) {
  const std::string folder(TrimBlanks(TrimNull(system.SystemFolder())));
  if (!folder.empty()) return folder;
  if (os.IsWin9x()) return windows + "\\system";
  if (os.IsWinNT()) return windows + "\\system32";
  return {};
}

std::string ReturnTemporaryFolder(System& system) {
  std::string folder = system.TemporaryFolder();
  if (!folder.empty()) folder.pop_back();  // the trailing "\"
  return folder;
}

struct Token {
  const char* token;
  std::string SystemFolders::*folder;  // null: a special folder
  SpecialFolder special;
};

constexpr Token kTokens[] = {
    {"%WIN%", &SystemFolders::windows, {}},
    {"%SYS%", &SystemFolders::system, {}},
    {"%PF%", &SystemFolders::program_files, {}},
    {"%CF%", &SystemFolders::common_files, {}},
    {"%TMP%", &SystemFolders::temporary, {}},
    {"%AD%", &SystemFolders::app_data, {}},
    {"%Desktop%", nullptr, SpecialFolder::Desktop},
    {"%Programs%", nullptr, SpecialFolder::Programs},
    {"%Personal%", nullptr, SpecialFolder::Personal},
    {"%Favorites%", nullptr, SpecialFolder::Favorites},
    {"%StartUp%", nullptr, SpecialFolder::StartUp},
    {"%StartMenu%", nullptr, SpecialFolder::StartMenu},
    {"%DesktopDirectory%", nullptr, SpecialFolder::DesktopDirectory},
    {"%Common_StartMenu%", nullptr, SpecialFolder::CommonStartMenu},
    {"%Common_Programs%", nullptr, SpecialFolder::CommonPrograms},
    {"%Common_StartUp%", nullptr, SpecialFolder::CommonStartUp},
    {"%Common_DesktopDirectory%", nullptr, SpecialFolder::CommonDesktopDirectory},
    {"%Common_Favorites%", nullptr, SpecialFolder::CommonFavorites},
};

}  // namespace

bool IsOwnGround(std::string_view path, const SystemFolders& folders) {
  if (!path.starts_with("\\\\")) return true;
  const auto holds = [&](const std::string& folder) { return IsAtOrBelow(path, folder); };
  for (const Token& token : kTokens) {
    if (token.folder && holds(folders.*token.folder)) return true;
  }
  return std::any_of(folders.special.begin(), folders.special.end(), holds);
}

SystemFolders ComputeSystemFolders(System& system, Registry& registry, const COpSysInfo& os,
                                   ErrorLog& log, std::string application_folder) {
  SystemFolders folders;
  CRegister reg(registry);
  folders.application = std::move(application_folder);
  log.Trap("GetWinDir", [&] {
    folders.windows = getWindowsFolder(system, os);
    folders.system = getSystemFolder(system, os, folders.windows);
  });
  folders.app_data = Bare(reg.QueryString(RootKey::CurrentUser, kShellFoldersKey, "AppData"));
  folders.temporary = ReturnTemporaryFolder(system);
  folders.program_files =
      Bare(reg.QueryString(RootKey::LocalMachine, kCurrentVersionKey, "ProgramFilesDir"));
  folders.common_files =
      Bare(reg.QueryString(RootKey::LocalMachine, kCurrentVersionKey, "CommonFilesDir"));
  folders.system_wow64 = Bare(system.Wow64Folder());
  if (!folders.system_wow64.empty()) {
    folders.program_files_64 = Bare(system.Environment("ProgramW6432"));
    folders.common_files_64 = Bare(system.Environment("CommonProgramW6432"));
  }
  for (std::size_t i = 0; i < kSpecialFolders; ++i) {
    folders.special[i] = Bare(system.ShellFolder(kFolderIds[i]));
  }
  return folders;
}

std::vector<std::string> PlacesOf(const std::string& path, const SystemFolders& folders) {
  const std::pair<const std::string&, const std::string&> twins[] = {
      {folders.system, folders.system_wow64},
      {folders.common_files, folders.common_files_64},
      {folders.program_files, folders.program_files_64},
  };
  std::vector<std::string> places = {path};
  for (const auto& [folder, twin] : twins) {
    if (twin.empty() || EqualsNoCase(folder, twin) || !IsAtOrBelow(path, folder)) continue;
    places.push_back(twin + path.substr(PrefixNoCase(path, folder)));
    break;
  }
  return places;
}

std::vector<std::string_view> FolderTokens() {
  std::vector<std::string_view> tokens;
  for (const Token& token : kTokens) tokens.push_back(token.token);
  return tokens;
}

std::optional<std::string> ExpandFolderToken(std::string_view text, const SystemFolders& folders) {
  for (const Token& token : kTokens) {
    if (FindNoCase(text, token.token) == std::string_view::npos) continue;
    const std::string& folder =
        token.folder ? folders.*token.folder : folders.Special(token.special);
    return ReplaceAll(text, token.token, folder);
  }
  return std::nullopt;
}

std::string CleanDirString(std::string_view text, const SystemFolders& folders) {
  return ExpandFolderToken(text, folders).value_or(std::string(text));
}

}  // namespace scourwell
