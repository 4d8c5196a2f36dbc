// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "machine/error_log.h"
#include "machine/op_sys_info.h"
#include "platform/registry.h"
#include "platform/system.h"

namespace scourwell {

// The 22 special folders, in the order in which they are asked for.
enum class SpecialFolder {
  Desktop,
  Programs,
  Personal,
  Favorites,
  StartUp,
  Recent,
  SendTo,
  StartMenu,
  DesktopDirectory,
  NetHood,
  Fonts,
  Templates,
  CommonStartMenu,
  CommonPrograms,
  CommonStartUp,
  CommonDesktopDirectory,
  AppData,
  PrintHood,
  CommonFavorites,
  InternetCache,
  Cookies,
  History,
};
inline constexpr int kSpecialFolders = 22;

// Computed once at start-up. No folder ends in "\"; one that the system does not know is empty.
struct SystemFolders {
  std::string application;
  std::string windows;
  std::string system;
  std::string app_data;
  std::string temporary;
  std::string program_files;
  std::string common_files;
  std::array<std::string, kSpecialFolders> special;
  // On a 64-bit Windows: where 32-bit programs have their system files, and 64-bit ones theirs.
  // Elsewhere empty.
  std::string system_wow64 = {};
  std::string program_files_64 = {};
  std::string common_files_64 = {};

  const std::string& Special(SpecialFolder folder) const {
    return special[static_cast<std::size_t>(folder)];
  }
};

// True for a path on a drive, and for one on a server when a folder of the user lies there. Asking
// for any other opens a connection, waits for it and offers the user's logon to whoever answers.
bool IsOwnGround(std::string_view path, const SystemFolders& folders);

SystemFolders ComputeSystemFolders(System& system, Registry& registry, const COpSysInfo& os,
                                   ErrorLog& log, std::string application_folder);

// The places that a path of a definition stands for: itself, and on a 64-bit Windows the same path
// in the other folder of its kind.
std::vector<std::string> PlacesOf(const std::string& path, const SystemFolders& folders);

// The folder tokens, as definitions spell them, in the order in which they are looked for.
std::vector<std::string_view> FolderTokens();

// Replaces the first folder token that `text` holds, found without case in the fixed order of
// the token table; every occurrence in exactly the table's spelling gives way to the folder. No
// value when no token is found.
std::optional<std::string> ExpandFolderToken(std::string_view text, const SystemFolders& folders);

// As above; a text without tokens comes back unchanged.
std::string CleanDirString(std::string_view text, const SystemFolders& folders);

}  // namespace scourwell
