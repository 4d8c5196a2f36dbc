// SPDX-License-Identifier: MIT
#include "refc/commands.h"

#include "refc/code_page.h"
#include "refc/diff.h"
#include "refc/dump.h"
#include "refc/escape.h"
#include "refc/help.h"
#include "refc/lint.h"
#include "refc/load.h"
#include "refc/match.h"
#include "refc/stats.h"

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
  int Judge(const Arguments& arguments);
  int MatchItems(const Arguments& arguments);
  int Compare(const Arguments& arguments);
  int Count(const Arguments& arguments);

 private:
  bool WriteChanges(const Arguments& arguments, const DefinitionSet& after,
                    const std::vector<Change>& changes);
  void ShowRow(const char* mark, const DefinitionSet& set, std::size_t sequence, const Row& row);
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
  if (findings_.count() == 0 && set_.IsEmpty()) {
    findings_.Add({0, 1}, "form", "there is nothing to build");
  }
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

int Session::Judge(const Arguments& arguments) {
  if (!LoadAll(arguments.paths)) return kUnusable;
  Lint(set_, &findings_);
  ShowFindings();
  console_.out(std::to_string(set_.row_count()) + " rows, " + std::to_string(findings_.count()) +
               " findings\n");
  return findings_.count() == 0 ? kFine : kFound;
}

// Kind, spy and definition.
void Session::ShowRow(const char* mark, const DefinitionSet& set, std::size_t sequence,
                      const Row& row) {
  std::string text = mark + std::string(KindWord(Catalogue()[sequence].kind)) + "\t" +
                     Escaped(set.View(row, 0)) + "\t" + Escaped(set.View(row, 1));
  if (row.cells[2].size != 0) {
    text += (Catalogue()[sequence].kind == Kind::Value ? "\\" : " ") + Escaped(set.View(row, 2));
  }
  console_.out(text);
}

int Session::MatchItems(const Arguments& arguments) {
  if (!LoadOne(arguments.paths[0], &set_, &findings_)) return kUnusable;
  ShowFindings();
  bool any = false;
  for (std::size_t i = 1; i < arguments.paths.size(); ++i) {
    std::string item = arguments.paths[i];
    std::string bad;
    const auto text = ToCodePage(item.data(), item.size(), &bad);
    if (!text) return Fail("match: the item holds " + bad);
    for (const Hit& hit : Match(set_, *text)) {
      any = true;
      ShowRow((arguments.paths[i] + "\t").c_str(), set_, hit.sequence, *hit.row);
      console_.out("\t" + set_.TextName(hit.row->place.text) + ":" +
                   std::to_string(hit.row->place.line) + "\n");
    }
  }
  return any ? kFound : kFine;
}

bool Session::WriteChanges(const Arguments& arguments, const DefinitionSet& after,
                           const std::vector<Change>& changes) {
  const auto texts = ChangeTexts(set_, after, changes);
  const auto file = disk_.Create(arguments.changes);
  const auto line = [&](std::size_t which, const std::string& text) {
    if (!text.empty()) file->Append(std::string(kReleaseValues[which].word) + "\t" + text + "\n");
  };
  file->Append("# The release: its number, and what the user is told of it.\n");
  line(0, arguments.number.empty() ? Escaped(after.Release(0)) : arguments.number);
  for (std::size_t i = 0; i < texts.size(); ++i) line(i + 1, Escaped(texts[i]));
  return file->Commit();
}

int Session::Compare(const Arguments& arguments) {
  if (arguments.changes.empty() && !arguments.number.empty()) {
    return Fail("diff: --number needs --changes");
  }
  DefinitionSet after;
  Findings after_findings;
  if (!LoadOne(arguments.paths[0], &set_, &findings_) ||
      !LoadOne(arguments.paths[1], &after, &after_findings)) {
    return kUnusable;
  }
  if (findings_.count() + after_findings.count() != 0) {
    console_.err("refc: rows that cannot be read are left out; refc lint says which\n");
  }
  const std::vector<Change> changes = Diff(set_, after);
  for (const Change& change : changes) {
    if (change.before && change.after) {
      ShowRow("~\t", after, change.sequence, *change.after);
      console_.out("\twas " + Escaped(set_.View(*change.before, 0)) + "\n");
    } else {
      ShowRow(change.after ? "+\t" : "-\t", change.after ? after : set_, change.sequence,
              change.after ? *change.after : *change.before);
      console_.out("\n");
    }
  }
  if (!arguments.changes.empty() && !WriteChanges(arguments, after, changes)) {
    return Fail(arguments.changes + ": cannot be written");
  }
  return changes.empty() ? kFine : kFound;
}

int Session::Count(const Arguments& arguments) {
  if (!LoadAll(arguments.paths)) return kUnusable;
  Lint(set_, &findings_);
  ShowStats(set_, findings_, console_.out);
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
    {"lint", &Session::Judge, 1, kAnyNumber, ""},
    {"match", &Session::MatchItems, 2, kAnyNumber, ""},
    {"diff", &Session::Compare, 2, 2, " --changes --number "},
    {"stats", &Session::Count, 1, kAnyNumber, ""},
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
