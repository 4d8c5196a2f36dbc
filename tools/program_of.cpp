// SPDX-License-Identifier: MIT
#include "tools/program_of.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "machine/environment.h"
#include "machine/file_utils.h"
#include "text/text.h"

namespace scourwell {
namespace {

struct Parts {
  std::string_view program;
  std::string_view arguments;
};

// Each look-up can take seconds, and a hostile command line could ask for hundreds.
constexpr int kMostLookUps = 100;
// A path with blanks and without quotes is looked for up to here, in bytes.
constexpr std::size_t kLongestGuess = 1024;
constexpr std::string_view kEndsWord = " \t,\"/";

class Finder {
 public:
  Finder(Files& files, const SystemFolders& folders) : files_(files), folders_(folders) {}

  // Whether the command named another machine, which is not asked: it could keep us waiting at
  // each look-up, and would be shown who the user is.
  bool IsRemote(std::string_view path) {
    path = TrimBlanks(path);
    if (!IsAbsolutePath(path)) return false;
    if (path[1] != ':') return true;
    if (path[0] != drive_) {
      drive_ = path[0];
      const std::vector<Drive> drives = files_.Drives();
      remote_ = std::any_of(drives.begin(), drives.end(), [&](const Drive& drive) {
        return drive.kind == DriveKind::Network && (drive.letter | 0x20) == (drive_ | 0x20);
      });
    }
    return remote_;
  }

  // Any "\" makes a name relative to a folder that nobody can know.
  std::optional<std::string> Find(std::string_view name) {
    const std::string text(TrimBlanks(name));
    if (text.empty() || IsRemote(text)) return std::nullopt;
    if (IsAbsolutePath(text)) return FindAt(text);
    if (HoldsSeparator(text) || text.find_first_of("/:") != text.npos) return std::nullopt;
    for (const std::string& folder : {folders_.system, folders_.system_wow64, folders_.windows}) {
      if (folder.empty()) continue;
      if (auto found = FindAt(AddPathToFileName(folder, text))) return found;
    }
    return std::nullopt;
  }

 private:
  bool IsFile(const std::string& path) {
    if (!IsPlainPath(path) || left_ == 0) return false;
    --left_;
    DirEntry entry;
    const Outcome found = files_.Stat(path, &entry);
    if (found.code() == kDiskNotReady) left_ = 0;
    return found.ok() && !entry.IsFolder();
  }

  std::optional<std::string> FindAt(const std::string& path) {
    if (IsFile(path)) return path;
    if (IsFile(path + ".exe")) return path + ".exe";
    return std::nullopt;
  }

  Files& files_;
  const SystemFolders& folders_;
  int left_ = kMostLookUps;
  char drive_ = 0;  // that was asked for last
  bool remote_ = false;
};

Parts CutAt(std::string_view command, std::size_t begin, std::size_t end) {
  const std::size_t behind = std::min(end + begin, command.size());
  return {command.substr(begin, end - begin), TrimBlanks(command.substr(behind))};
}

// The library and what follows it: "file.dll,Entry arguments".
Parts SplitLibrary(std::string_view arguments) {
  if (arguments.starts_with('"')) {
    return CutAt(arguments, 1, std::min(arguments.find('"', 1), arguments.size()));
  }
  return CutAt(arguments, 0, std::min(arguments.find(','), arguments.size()));
}

bool IsRundll(std::string_view program) {
  const std::string_view name = FileNamePart(program);
  return EqualsNoCase(name, "rundll32.exe") || EqualsNoCase(name, "rundll32") ||
         EqualsNoCase(name, "rundll.exe");
}

ProgramOf Result(Finder& finder, const Parts& parts) {
  auto found = finder.Find(parts.program);
  const bool exists = found.has_value();
  return {exists ? std::move(*found) : std::string(TrimBlanks(parts.program)),
          std::string(parts.arguments), exists, finder.IsRemote(parts.program)};
}

// What ends the name of a program.
constexpr std::string_view kExtensions[] = {".exe", ".com", ".bat", ".cmd", ".pif", ".scr",
                                            ".dll", ".ocx", ".vbs", ".js",  ".lnk", ".hta"};

// Where the first argument begins that is a path of its own or stands in quotes.
std::size_t BeginOfPathArgument(std::string_view command) {
  std::size_t blank = command.find(' ');
  while (blank != command.npos) {
    const std::string_view rest = command.substr(blank + 1);
    if (IsAbsolutePath(rest) || rest.starts_with('"')) break;
    blank = command.find(' ', blank + 1);
  }
  return std::min(blank, command.size());
}

// Where an unquoted name that leads nowhere ends: behind the first extension that ends a word, else
// at the first blank.
std::size_t EndOfName(std::string_view command) {
  const std::string_view name = command.substr(0, BeginOfPathArgument(command));
  std::size_t end = name.npos;
  for (const std::string_view extension : kExtensions) {
    for (std::size_t behind = 0;;) {
      const std::size_t found = FindNoCase(name.substr(behind), extension);
      if (found == name.npos) break;
      behind += found + extension.size();
      if (behind < name.size() && kEndsWord.find(name[behind]) == kEndsWord.npos) continue;
      end = std::min(end, behind);
      break;
    }
  }
  return std::min(end == name.npos ? name.find(' ') : end, name.size());
}

enum class Choice { AsTheSystem, Longest };

// Unquoted, the system takes the shortest beginning that leads to a file: "C:\Program.exe" for
// whatever lies in "C:\Program Files". Whoever wrote the command meant the longest.
ProgramOf Locate(Finder& finder, std::string_view command, Choice choice) {
  if (command.starts_with('"')) {
    const std::size_t end = std::min(command.find('"', 1), command.size());
    return Result(finder, CutAt(command, 1, end));
  }
  ProgramOf longest;
  for (std::size_t end = command.find(' '); end <= kLongestGuess;
       end = command.find(' ', end + 1)) {
    ProgramOf found = Result(finder, CutAt(command, 0, end));
    if (!found.exists) continue;
    if (choice == Choice::AsTheSystem) return found;
    longest = std::move(found);
  }
  ProgramOf whole = Result(finder, {command, {}});
  // Nothing exists: a path with blanks is named up to its extension, anything else up to the
  // first blank.
  if (whole.exists) return whole;
  if (longest.exists) return longest;
  return Result(finder, CutAt(command, 0, EndOfName(command)));
}

}  // namespace

ProgramOf FindProgram(std::string_view command, Files& files, const SystemFolders& folders,
                      System& system) {
  ProgramOf program = FindStarter(command, files, folders, system);
  if (!IsRundll(program.path) || program.arguments.empty()) return program;
  Finder finder(files, folders);
  return Result(finder, SplitLibrary(program.arguments));
}

ProgramOf FindStarter(std::string_view command, Files& files, const SystemFolders& folders,
                      System& system) {
  Finder finder(files, folders);
  return Locate(finder, ExpandEnvironment(TrimBlanks(command), system), Choice::AsTheSystem);
}

std::string SafeCommand(const std::string& command, Files& files, const SystemFolders& folders,
                        System& system) {
  const std::string_view trimmed = TrimBlanks(command);
  if (trimmed.empty() || trimmed.starts_with('"')) return command;
  Finder finder(files, folders);
  const ProgramOf program = Locate(finder, ExpandEnvironment(trimmed, system), Choice::Longest);
  if (!program.exists || program.path.find(' ') == std::string::npos) return command;
  return "\"" + program.path + "\"" + (program.arguments.empty() ? "" : " ") + program.arguments;
}

}  // namespace scourwell
