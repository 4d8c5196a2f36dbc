// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "machine/error_log.h"
#include "machine/op_sys_info.h"
#include "platform/files.h"
#include "platform/profiles.h"
#include "platform/pump.h"
#include "platform/system.h"
#include "text/paths.h"

namespace scourwell {

// The application folder, trimmed of blanks, joined with a name.
std::string FullPath_With_Filename(std::string_view application_folder, std::string_view name);

// A listing of the path for files yields a name. Wildcards are allowed, as in any listing.
bool FileExists(Files& files, const std::string& path);
// A listing of the folder's "*.*" succeeds.
bool FolderExists(Files& files, const std::string& path);

// Whether files can be made in the folder. Nothing stays there.
bool CanWriteIn(Files& files, const std::string& folder);

// True for "." and "..", links, and folders right below a drive's root that hold the system's own
// recycled or restore data. `parent` is the folder that holds the entry.
bool DoWeSkipThisFolder(std::string_view parent, const DirEntry& entry);

// Ends a process and waits for that. Scourwell's own is refused as if access were denied.
Outcome KillProcessById(std::uint32_t process_id, System& system, Pump& pump);

// The system's message for the last error code.
std::string RetrieveError(System& system);

// key = value in section "Setting" of "Setting.ini" in the application folder.
Outcome WriteINIString(Profiles& profiles, CodePages& code_pages,
                       std::string_view application_folder, const std::string& key,
                       const std::string& value);

}  // namespace scourwell
