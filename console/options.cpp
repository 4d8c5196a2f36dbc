// SPDX-License-Identifier: MIT
#include "console/options.h"

#include "console/option_table.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr std::string_view kNo = "no-";
constexpr std::size_t kHelpColumn = 30;

bool IsLetter(char c) { return (c | 0x20) >= 'a' && (c | 0x20) <= 'z'; }

bool HasCounterpart(const OptionRow& row) {
  return std::holds_alternative<std::optional<bool> Options::*>(row.field);
}

bool Knows(const Command* command, const OptionRow& row) {
  return command ? (row.commands & command->bit) != 0 : row.commands == 0 || row.commands == 0xFF;
}

const OptionRow* FindRow(const Command* command, std::string_view name, bool* no) {
  for (const OptionRow& row : OptionRows()) {
    if (!Knows(command, row)) continue;
    *no = HasCounterpart(row) && name.starts_with(kNo) && name.substr(kNo.size()) == row.name;
    if (*no || name == row.name) return &row;
  }
  return nullptr;
}

void Store(const OptionRow& row, bool yes, const std::string& value, Options* options) {
  if (const auto* flag = std::get_if<bool Options::*>(&row.field)) {
    options->** flag = true;
  } else if (const auto* choice = std::get_if<std::optional<bool> Options::*>(&row.field)) {
    options->** choice = yes;
  } else if (const auto* text = std::get_if<std::string Options::*>(&row.field)) {
    options->** text = value;
  } else {
    (options->*std::get<std::vector<std::string> Options::*>(row.field)).push_back(value);
  }
}

// Reads the option at `*at` and what belongs to it. Empty when it makes sense.
std::string ParseOption(const std::vector<std::string>& words, std::size_t* at, Options* options) {
  const std::string word = words[*at] == "-h" ? "--help" : words[*at];
  const std::size_t equals = word.find('=');
  const std::string name = word.substr(2, equals == word.npos ? word.npos : equals - 2);
  bool no = false;
  const OptionRow* row = word.starts_with("--") ? FindRow(options->command, name, &no) : nullptr;
  if (!row) return "unknown option " + word;
  std::string value;
  if (equals != word.npos) {
    if (!row->value) return "--" + name + " takes no value";
    value = word.substr(equals + 1);
  } else if (row->value) {
    if (*at + 1 == words.size()) return "--" + name + " needs a value";
    value = words[++*at];
  }
  if (row->value && value.empty()) return "--" + name + " needs a value";
  Store(*row, !no, value, options);
  return "";
}

const Command* FindCommand(std::string_view name) {
  for (const Command& command : Commands()) {
    if (name == command.name) return &command;
  }
  return nullptr;
}

std::string Check(const Options& options) {
  if (options.help || options.version) return "";
  if (!options.command) return "no command";
  if (options.format != "text" && options.format != "csv" && options.format != "json") {
    return "unknown format " + options.format;
  }
  if (!options.windows.empty() && !options.drives.empty()) {
    return "--windows and --drive say the same";
  }
  for (const std::string& drive : options.drives) {
    if (drive.size() < 3 || !IsLetter(drive[0]) || drive[1] != '=') {
      return "--drive wants LETTER=FOLDER, not " + drive;
    }
  }
  return "";
}

std::string Column(std::string text) {
  text.resize(text.size() < kHelpColumn ? kHelpColumn : text.size() + 1, ' ');
  return text;
}

}  // namespace

std::string ParseOptions(const std::vector<std::string>& words, Options* options) {
  bool options_end = false;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (!options_end && word == "--") {
      options_end = true;
    } else if (!options_end && word.size() > 1 && word[0] == '-') {
      if (std::string wrong = ParseOption(words, &i, options); !wrong.empty()) return wrong;
    } else if (options->command) {
      options->words.push_back(word);
    } else if (options->command = FindCommand(word); !options->command) {
      return "unknown command " + word;
    }
  }
  return Check(*options);
}

std::string HelpText(const Command* command) {
  std::string text = "Usage: scourwell ";
  if (command) {
    text += std::string(command->usage) + "\n" + command->summary + "\n";
  } else {
    text += "COMMAND [OPTION...]\nFinds and removes spyware.\n\n";
    for (const Command& known : Commands()) {
      text += Column("  " + std::string(known.name)) + known.summary + "\n";
    }
  }
  text += "\n";
  for (const OptionRow& row : OptionRows()) {
    if (!Knows(command, row)) continue;
    std::string name = std::string("  --") + (HasCounterpart(row) ? "[no-]" : "") + row.name;
    if (row.value) name += std::string("=") + row.value;
    text += Column(std::move(name)) + row.help + "\n";
  }
  text += command ? "" : "\nscourwell COMMAND --help says more of a command.\n";
  return text +=
         "\nExit codes: 0 nothing found, 1 found, 2 found and all removed, 3 incomplete or "
         "failed,\n"
         "4 stopped, 64 wrong usage.\n";
}

std::vector<std::string> SplitCommandLine(std::string_view line) {
  std::vector<std::string> words;
  std::string word;
  bool quoted = false;
  bool any = false;  // a word has begun, be it empty
  const auto end_word = [&] {
    if (any) words.push_back(word);
    word.clear();
    any = false;
  };
  for (std::size_t i = 0; i < line.size();) {
    std::size_t slashes = 0;
    while (i + slashes < line.size() && line[i + slashes] == '\\') ++slashes;
    i += slashes;
    const bool quote = i < line.size() && line[i] == '"';
    word.append(quote ? slashes / 2 : slashes, '\\');
    any = any || slashes > 0;
    if (i == line.size()) break;
    const char c = line[i++];
    if (quote && slashes % 2 == 0) {
      quoted = !quoted;
      any = true;
    } else if (!quoted && (c == ' ' || c == '\t')) {
      end_word();
    } else {
      word += c;
      any = true;
    }
  }
  end_word();
  return words;
}

}  // namespace scourwell
