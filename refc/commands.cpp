#include "refc/commands.h"

#include "refc/dump.h"
#include "refc/help.h"
#include "refc/load.h"

namespace scourwell::refc {
namespace {

// The words of one command: options that take a value, and the rest.
struct Arguments {
  std::vector<std::string> paths;
  std::string output;   // -o
  std::string changes;  // --changes
  std::string number;   // --number
};

// What a command works with.
class Session {
 public:
  Session(Disk& disk, const Console& console) : disk_(disk), console_(console) {}

  int Build(const Arguments& arguments);
  int Dump(const Arguments& arguments);

 private:
  bool LoadAll(const std::vector<std::string>& paths);
  bool LoadOne(const std::string& path, DefinitionSet* set, Findings* findings);
  int Fail(const std::string& text) {
    console_.err("refc: " + text + "\n");
    return kUnusable;
  }
  void ShowFindings();

  Disk& disk_;
  const Console& console_;
  DefinitionSet set_;
  Findings findings_;
};

bool Session::LoadOne(const std::string& path, DefinitionSet* set, Findings* findings) {
  std::string unreadable;
  if (Load(disk_, path, set, findings, &unreadable)) return true;
  Fail(unreadable + ": cannot be read" +
       (disk_.IsFolder(unreadable) ? ", there is no *.tsv in the folder" : ""));
  return false;
}

bool Session::LoadAll(const std::vector<std::string>& paths) {
  for (const std::string& path : paths) {
    if (!LoadOne(path, &set_, &findings_)) return false;
  }
  return true;
}

void Session::ShowFindings() {
  for (const Finding& finding : findings_.Sorted()) {
    console_.err(Describe(finding, set_) + "\n");
  }
  const std::size_t kept = findings_.Sorted().size();
  if (findings_.count() > kept) {
    console_.err("refc: " + std::to_string(findings_.count() - kept) + " more are not shown\n");
  }
}

int Session::Build(const Arguments& arguments) {
  if (arguments.output.empty()) return Fail("build: -o FILE is missing");
  if (!LoadAll(arguments.paths)) return kUnusable;
  if (findings_.count() != 0) {
    ShowFindings();
    return kFound;
  }
  const auto file = disk_.Create(arguments.output);
  WriteReference(set_, [&](std::string_view text) { file->Append(text); });
  if (!file->Commit()) return Fail(arguments.output + ": cannot be written");
  return kFine;
}

int Session::Dump(const Arguments& arguments) {
  const std::optional<std::string> content = disk_.Read(arguments.paths[0]);
  if (!content) return Fail(arguments.paths[0] + ": cannot be read");
  DumpReference(*content, console_.out);
  return kFine;
}

struct Command {
  const char* name;
  int (Session::*run)(const Arguments&);
  std::size_t least;  // paths
  std::size_t most;
  const char* options;  // the ones it knows, with blanks around each
};

constexpr std::size_t kAnyNumber = static_cast<std::size_t>(-1);

constexpr Command kCommands[] = {
    {"build", &Session::Build, 1, kAnyNumber, " -o "},
    {"dump", &Session::Dump, 1, 1, ""},
};

std::string* OptionOf(const std::string& word, Arguments* arguments) {
  if (word == "-o") return &arguments->output;
  if (word == "--changes") return &arguments->changes;
  return word == "--number" ? &arguments->number : nullptr;
}

// Empty when the words make sense.
std::string Parse(const Command& command, const std::vector<std::string>& words,
                  Arguments* arguments) {
  const std::string name = std::string(command.name) + ": ";
  bool options_end = false;
  for (std::size_t i = 1; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (options_end || word.size() < 2 || word[0] != '-') {
      arguments->paths.push_back(word);
    } else if (word == "--") {
      options_end = true;
    } else if (std::string_view(command.options).find(" " + word + " ") == std::string::npos) {
      return name + "unknown option " + word;
    } else if (i + 1 == words.size() || words[i + 1].empty()) {
      return name + word + " needs a value";
    } else {
      *OptionOf(word, arguments) = words[++i];
    }
  }
  if (arguments->paths.size() < command.least) return name + "too few arguments";
  if (arguments->paths.size() > command.most) return name + "too many arguments";
  return "";
}

}  // namespace

int Run(const std::vector<std::string>& words, Disk& disk, const Console& console) {
  for (const std::string& word : words) {
    if (word == "--") break;
    if (word != "--help" && word != "-h") continue;
    console.out(kHelp);
    return kFine;
  }
  for (const Command& command : kCommands) {
    if (words.empty() || words[0] != command.name) continue;
    Arguments arguments;
    const std::string mistake = Parse(command, words, &arguments);
    if (mistake.empty()) return (Session(disk, console).*command.run)(arguments);
    console.err("refc: " + mistake + "; see refc --help\n");
    return kUnusable;
  }
  console.err(words.empty() ? "refc: no command; see refc --help\n"
                            : "refc: unknown command " + words[0] + "; see refc --help\n");
  return kUnusable;
}

}  // namespace scourwell::refc
