// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "machine/error_log.h"
#include "machine/op_sys_info.h"
#include "platform/files.h"
#include "platform/profiles.h"
#include "platform/system.h"
#include "text/paths.h"

namespace scourwell {

// The application folder, trimmed of blanks, joined with a name.
std::string FullPath_With_Filename(std::string_view application_folder, std::string_view name);

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
                          CodePages& code_pages, const COpSysInfo& os);
// The way of Windows 95, 98 and Me: an entry in the "[Rename]" section of "WinInit.ini", right
// under its header. The file is replaced as a whole, never lost; a missing section is added.
Outcome DestroyOnReboot(const std::string& path, Files& files, System& system,
                        CodePages& code_pages);

// Ends a process. Scourwell's own is refused as if access were denied.
Outcome KillProcessById(std::uint32_t process_id, System& system);

// The system's message for the last error code.
std::string RetrieveError(System& system);

// key = value in section "Setting" of "Setting.ini" in the application folder.
Outcome WriteINIString(Profiles& profiles, CodePages& code_pages,
                       std::string_view application_folder, const std::string& key,
                       const std::string& value);

}  // namespace scourwell
