#include "platform/file_utils.h"

#include "platform/text.h"

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

std::string AddPathToFileName(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (path.empty() || path.back() != '\\') path += '\\';
  return path.append(name);
}

std::string FullPath_With_Filename(std::string_view application_folder, std::string_view name) {
  return AddPathToFileName(TrimBlanks(application_folder), name);
}

std::string_view FileNamePart(std::string_view path) {
  const std::size_t slash = path.rfind('\\');
  return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

std::string_view FolderPart(std::string_view path) {
  const std::size_t slash = path.rfind('\\');
  return slash == std::string_view::npos ? std::string_view() : path.substr(0, slash);
}

bool IsAbsolutePath(std::string_view path) {
  const auto is_letter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
  if (path.size() >= 3 && is_letter(path[0]) && path[1] == ':' && path[2] == '\\') return true;
  return path.size() >= 5 && path.starts_with("\\\\") && path[2] != '\\' && path[2] != '.' &&
         path[2] != '?';
}

bool IsDeviceName(std::string_view name) {
  constexpr const char* kDevices[] = {"CON", "PRN", "AUX", "NUL", "CLOCK$"};
  name = TrimBlanks(name.substr(0, name.find('.')));
  for (const char* device : kDevices) {
    if (EqualsNoCase(name, device)) return true;
  }
  return name.size() == 4 && name[3] >= '0' && name[3] <= '9' &&
         (EqualsNoCase(name.substr(0, 3), "COM") || EqualsNoCase(name.substr(0, 3), "LPT"));
}

bool IsPlainPath(std::string_view path) {
  if (!IsAbsolutePath(path)) return false;
  for (const char c : path) {
    if (static_cast<unsigned char>(c) < 32 || c == '*' || c == '?' || c == '/' || c == '"' ||
        c == '<' || c == '>' || c == '|') {
      return false;
    }
  }
  if (path.find(':', 2) != std::string_view::npos) return false;
  while (!path.empty()) {
    const std::string_view part = path.substr(0, path.find('\\'));
    // Windows drops dots and blanks at the end of a part: dots alone lead elsewhere.
    const bool empty = part.find_first_not_of(". ") == std::string_view::npos;
    if ((empty && !part.empty()) || IsDeviceName(part)) return false;
    path.remove_prefix(part.size() == path.size() ? part.size() : part.size() + 1);
  }
  return true;
}

std::string PlainImagePath(std::string_view path, std::string_view windows_folder) {
  constexpr std::string_view kSystemRoot = "\\SystemRoot\\";
  for (const std::string_view prefix : {"\\??\\", "\\\\?\\"}) {
    if (path.starts_with(prefix) && IsAbsolutePath(path.substr(prefix.size()))) {
      return std::string(path.substr(prefix.size()));
    }
  }
  if (!EqualsNoCase(path.substr(0, kSystemRoot.size()), kSystemRoot)) return std::string(path);
  return AddPathToFileName(windows_folder, path.substr(kSystemRoot.size()));
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
                          const COpSysInfo& os) {
  if (os.IsWinNT()) return system.MoveAtReboot(path, "");
  return DestroyOnReboot(path, files, system);
}

Outcome DestroyOnReboot(const std::string& path, Files& files, System& system) {
  DirEntry entry;
  if (Outcome found = files.Stat(path, &entry); !found.ok()) return found;
  const std::string short_path(TrimBlanks(TrimNull(files.ShortPath(path))));
  if (short_path.empty()) return Outcome::Failed(kPathNotFound);
  const std::string line = (entry.IsFolder() ? "DIRNUL=" : "NUL=") + short_path;
  const std::string ini = system.Environment("WinDir") + "\\WinInit.ini";
  std::string content;
  Outcome present = files.Stat(ini, &entry);
  if (present.ok()) present = files.Read(ini, kWinInitLimit, &content);
  if (!present.ok() && present.number() != kFileNotFound) return present;
  return files.Replace(ini, WithRenameEntry(content, line));
}

Outcome KillProcessById(std::uint32_t process_id, System& system) {
  if (process_id == system.OwnProcessId()) {
    return Outcome::Failed(kPermissionDenied, "Scourwell does not end its own process");
  }
  return system.TerminateProcess(process_id);
}

std::string RetrieveError(System& system) { return system.ErrorText(system.LastError()); }

Outcome WriteINIString(Profiles& profiles, std::string_view application_folder,
                       const std::string& key, const std::string& value) {
  return profiles.WriteProfile("Setting", key, value,
                               FullPath_With_Filename(application_folder, "Setting.ini"));
}

}  // namespace scourwell
