// SPDX-License-Identifier: MIT
#include "machine/file_utils.h"

#include "text/text.h"

namespace scourwell {
namespace {

constexpr char kLineBreak[] = "\r\n";
constexpr std::uint64_t kWinInitLimit = 1 << 20;

// Names of the folders that belong to the system alone.
constexpr const char* kSystemOwnFolders[] = {"System Volume Information", "RECYCLER", "RECYCLED",
                                             "$Recycle.Bin"};

// The position behind "[Rename]" at the start of a line, or npos.
std::size_t BehindRenameHeader(std::string_view text) {
  constexpr std::string_view kHeader = "[Rename]";
  for (std::size_t at = 0; (at = FindNoCase(text, kHeader, at)) != std::string_view::npos; ++at) {
    if (at == 0 || text[at - 1] == '\n' || text[at - 1] == '\r') return at + kHeader.size();
  }
  return std::string_view::npos;
}

std::string WithRenameEntry(std::string_view text, const std::string& entry) {
  const std::size_t at = BehindRenameHeader(text);
  std::string result;
  if (at == std::string_view::npos) {
    result.append("[Rename]").append(kLineBreak).append(entry).append(kLineBreak).append(text);
    return result;
  }
  const std::string_view rest = text.substr(at);
  result.append(text.substr(0, at)).append(kLineBreak).append(entry).append(kLineBreak);
  return result.append(rest.starts_with(kLineBreak) ? rest.substr(2) : rest);
}

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

bool DoWeSkipThisFolder(std::string_view parent, const DirEntry& entry) {
  if (entry.IsLink() || entry.name == "." || entry.name == "..") return true;
  // Further down such a name is anybody's, and would make a good hiding place.
  if (parent.size() > 3 || !IsAbsolutePath(parent)) return false;
  for (const char* name : kSystemOwnFolders) {
    if (EqualsNoCase(entry.name, name)) return true;
  }
  return false;
}

Outcome DeleteAtNextStart(const std::string& path, Files& files, System& system,
                          CodePages& code_pages, const COpSysInfo& os) {
  if (os.IsWinNT()) return system.MoveAtReboot(path, "");
  return DestroyOnReboot(path, files, system, code_pages);
}

Outcome DestroyOnReboot(const std::string& path, Files& files, System& system,
                        CodePages& code_pages) {
  DirEntry entry;
  if (Outcome found = files.Stat(path, &entry); !found.ok()) return found;
  const std::string short_path(TrimBlanks(TrimNull(files.ShortPath(path))));
  if (short_path.empty()) return Outcome::Failed(kPathNotFound);
  const std::optional<std::string> bytes = code_pages.Encode(short_path);
  if (!bytes) return Outcome::Failed(kBadFileName);
  const std::string line = (entry.IsFolder() ? "DIRNUL=" : "NUL=") + *bytes;
  const std::string ini = system.Environment("WinDir") + "\\WinInit.ini";
  std::string content;
  Outcome present = files.Stat(ini, &entry);
  if (present.ok()) present = files.Read(ini, kWinInitLimit, &content);
  if (!present.ok() && present.code() != kFileNotFound) return present;
  return files.Replace(ini, WithRenameEntry(content, line));
}

Outcome KillProcessById(std::uint32_t process_id, System& system) {
  if (process_id == system.OwnProcessId()) {
    return Outcome::Failed(kPermissionDenied, "Scourwell does not end its own process");
  }
  return system.TerminateProcess(process_id);
}

std::string RetrieveError(System& system) { return system.ErrorText(system.LastError()); }

Outcome WriteINIString(Profiles& profiles, CodePages& code_pages,
                       std::string_view application_folder, const std::string& key,
                       const std::string& value) {
  return profiles.WriteProfile("Setting", key, code_pages.Spelled(value),
                               FullPath_With_Filename(application_folder, "Setting.ini"));
}

}  // namespace scourwell
