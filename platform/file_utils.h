#pragma once

#include <string>
#include <string_view>

#include "platform/error_log.h"
#include "platform/files.h"
#include "platform/op_sys_info.h"
#include "platform/profiles.h"
#include "platform/system.h"

namespace scourwell {

// The longest path that the system's ANSI calls take, in characters.
inline constexpr std::size_t kLongestPath = 259;

// A name that the code page could not hold carries a "?" where the character was lost.
inline bool IsLossy(std::string_view name) { return name.find('?') != std::string_view::npos; }

// folder + "\" (unless the folder ends in one) + name.
std::string AddPathToFileName(std::string_view folder, std::string_view name);
// The application folder, trimmed of blanks, joined with a name.
std::string FullPath_With_Filename(std::string_view application_folder, std::string_view name);
// What follows the last "\"; the whole text when there is none.
std::string_view FileNamePart(std::string_view path);
// What stands before the last "\"; empty when there is none.
std::string_view FolderPart(std::string_view path);
// True for "X:\..." and "\\server\share...".
bool IsAbsolutePath(std::string_view path);
// True for the names that every folder answers to: "NUL", "COM1.TXT" and their like.
bool IsDeviceName(std::string_view name);
// True when a path from a definition may be looked up as it is: absolute, printable, without
// wildcards, device names and "." and ".." parts.
bool IsPlainPath(std::string_view path);

// The path of a process's image, which the NT family names in its own way for what starts before
// the first logon: "\SystemRoot\System32\smss.exe", "\??\C:\WINDOWS\...".
std::string PlainImagePath(std::string_view path, std::string_view windows_folder);

// A listing of the path for files yields a name. Wildcards are allowed, as in any listing.
bool FileExists(Files& files, const std::string& path);
// A listing of the folder's "*.*" succeeds.
bool FolderExists(Files& files, const std::string& path);

// True for "." and "..", links, and folders right below a drive's root that hold the system's own
// recycled or restore data. `parent` is the folder that holds the entry.
bool DoWeSkipThisFolder(std::string_view parent, const DirEntry& entry);

// Schedules a file or folder for deletion at the next start, by the way that the running system
// offers.
Outcome DeleteAtNextStart(const std::string& path, Files& files, System& system,
                          const COpSysInfo& os);
// The way of Windows 95, 98 and Me: an entry in the "[Rename]" section of "WinInit.ini", right
// under its header. The file is replaced as a whole, never lost; a missing section is added.
Outcome DestroyOnReboot(const std::string& path, Files& files, System& system);

// Ends a process. Scourwell's own is refused as if access were denied.
Outcome KillProcessById(std::uint32_t process_id, System& system);

// The system's message for the last error code.
std::string RetrieveError(System& system);

// key = value in section "Setting" of "Setting.ini" in the application folder.
Outcome WriteINIString(Profiles& profiles, std::string_view application_folder,
                       const std::string& key, const std::string& value);

}  // namespace scourwell
