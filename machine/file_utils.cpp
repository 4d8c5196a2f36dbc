// SPDX-License-Identifier: MIT
#include "machine/file_utils.h"

#include <memory>

#include "text/text.h"

namespace scourwell {
namespace {

// Names of the folders that belong to the system alone.
constexpr const char* kSystemOwnFolders[] = {"System Volume Information", "RECYCLER", "RECYCLED",
                                             "$Recycle.Bin"};

}  // namespace

std::string FullPath_With_Filename(std::string_view application_folder, std::string_view name) {
  return AddPathToFileName(TrimBlanks(application_folder), name);
}

bool FileExists(Files& files, const std::string& path) {
  bool found = false;
  const Outcome listed = files.List(path, [&](const DirEntry& entry) {
    found = !entry.IsFolder();
    return !found;
  });
  return listed.ok() && found;
}

bool FolderExists(Files& files, const std::string& path) {
  if (path.empty()) return false;
  return files.List(AddPathToFileName(path, "*.*"), [](const DirEntry&) { return false; }).ok();
}

// What is never committed goes with its writer.
bool CanWriteIn(Files& files, const std::string& folder) {
  std::unique_ptr<FileWriter> probe;
  return files.OpenWriter(AddPathToFileName(folder, "Scourwell.tmp"), &probe).ok() &&
         probe->Write("x").ok();
}

bool DoWeSkipThisFolder(std::string_view parent, const DirEntry& entry) {
  if (entry.IsLink() || entry.name == "." || entry.name == "..") return true;
  // Further down such a name is anybody's, and would make a good hiding place.
  if (parent.size() > 3 || !IsAbsolutePath(parent)) return false;
  for (const char* name : kSystemOwnFolders) {
    if (EqualsNoCase(entry.name, name)) return true;
  }
  return false;
}

Outcome KillProcessById(std::uint32_t process_id, System& system, Pump& pump) {
  if (process_id == system.OwnProcessId()) {
    return Outcome::Failed(kPermissionDenied, "Scourwell does not end its own process");
  }
  return system.TerminateProcess(process_id, [&] { return pump.Next(); });
}

std::string RetrieveError(System& system) { return system.ErrorText(system.LastError()); }

Outcome WriteINIString(Profiles& profiles, CodePages& code_pages,
                       std::string_view application_folder, const std::string& key,
                       const std::string& value) {
  return profiles.WriteProfile("Setting", key, code_pages.Spelled(value),
                               FullPath_With_Filename(application_folder, "Setting.ini"));
}

}  // namespace scourwell
