#include "tools/program_of.h"

#include <optional>

#include "platform/file_utils.h"
#include "platform/text.h"

namespace scourwell {
namespace {

struct Parts {
  std::string_view program;
  std::string_view arguments;
};

struct Finder {
  Files& files;
  const SystemFolders& folders;

  bool IsFile(const std::string& path) const {
    DirEntry entry;
    return IsPlainPath(path) && files.Stat(path, &entry).ok() && !entry.IsFolder();
  }

  std::optional<std::string> FindAt(const std::string& path) const {
    if (path.size() > kLongestPath) return std::nullopt;
    if (IsFile(path)) return path;
    if (IsFile(path + ".exe")) return path + ".exe";
    return std::nullopt;
  }

  // Any "\" makes a name relative to a folder that nobody can know.
  std::optional<std::string> Find(std::string_view name) const {
    const std::string text(TrimBlanks(name));
    if (text.empty() || text.size() > kLongestPath) return std::nullopt;
    if (IsAbsolutePath(text)) return FindAt(text);
    if (text.find_first_of("\\/:") != text.npos) return std::nullopt;
    for (const std::string& folder : {folders.system, folders.windows}) {
      if (auto found = FindAt(AddPathToFileName(folder, text))) return found;
    }
    return std::nullopt;
  }
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

ProgramOf Result(const Finder& finder, const Parts& parts) {
  auto found = finder.Find(parts.program);
  const bool exists = found.has_value();
  return {exists ? std::move(*found) : std::string(TrimBlanks(parts.program)),
          std::string(parts.arguments), exists};
}

ProgramOf Locate(const Finder& finder, std::string_view command) {
  if (command.starts_with('"')) {
    const std::size_t end = std::min(command.find('"', 1), command.size());
    return Result(finder, CutAt(command, 1, end));
  }
  // Unquoted: the shortest beginning that leads to a file, as the system tries them.
  for (std::size_t end = command.find(' '); end <= kLongestPath; end = command.find(' ', end + 1)) {
    ProgramOf found = Result(finder, CutAt(command, 0, end));
    if (found.exists) return found;
  }
  ProgramOf whole = Result(finder, {command, {}});
  // Nothing exists: a path with blanks is named up to its extension, anything else up to the
  // first blank.
  if (whole.exists) return whole;
  const std::size_t extension = FindNoCase(command, ".exe");
  const std::size_t end = extension == command.npos ? command.find(' ') : extension + 4;
  return Result(finder, CutAt(command, 0, std::min(end, command.size())));
}

}  // namespace

std::string ExpandEnvironment(std::string_view text, System& system) {
  std::string result;
  while (!text.empty()) {
    const std::size_t first = text.find('%');
    const std::size_t second = first == text.npos ? first : text.find('%', first + 1);
    result += text.substr(0, first);
    if (second == text.npos) {
      if (first != text.npos) result += text.substr(first);
      break;
    }
    const std::string name(text.substr(first + 1, second - first - 1));
    const std::string value = name.empty() ? std::string() : system.Environment(name);
    if (value.empty()) {
      // The second sign may begin the next name.
      result += text.substr(first, second - first);
      text.remove_prefix(second);
      continue;
    }
    result += value;
    text.remove_prefix(second + 1);
  }
  return result;
}

ProgramOf FindProgram(std::string_view command, Files& files, const SystemFolders& folders,
                      System& system) {
  ProgramOf program = FindStarter(command, files, folders, system);
  if (!IsRundll(program.path) || program.arguments.empty()) return program;
  return Result(Finder{files, folders}, SplitLibrary(program.arguments));
}

ProgramOf FindStarter(std::string_view command, Files& files, const SystemFolders& folders,
                      System& system) {
  return Locate(Finder{files, folders}, ExpandEnvironment(TrimBlanks(command), system));
}

std::string SafeCommand(const std::string& command, Files& files, const SystemFolders& folders,
                        System& system) {
  const std::string_view trimmed = TrimBlanks(command);
  if (trimmed.empty() || trimmed.starts_with('"')) return command;
  const ProgramOf program = Locate(Finder{files, folders}, ExpandEnvironment(trimmed, system));
  if (!program.exists || program.path.find(' ') == std::string::npos) return command;
  return "\"" + program.path + "\"" + (program.arguments.empty() ? "" : " ") + program.arguments;
}

}  // namespace scourwell
