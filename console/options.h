// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scourwell {

// The commands, as bits: an option says which of them know it.
enum CommandBit : unsigned {
  kScan = 1,
  kRemove = 2,
  kRestore = 4,
  kBackups = 8,
  kIgnore = 16,
  kStartup = 32,
  kReport = 64,
  kDefinitions = 128,
};

// A command and what --help says of it.
struct Command {
  const char* name;
  CommandBit bit;
  const char* usage;
  const char* summary;
};

// What the command line says. What it does not say is left to the user's settings, or to their
// defaults where there are none.
struct Options {
  const Command* command = nullptr;  // null: none was named
  std::vector<std::string> words;    // that are no options
  bool help = false;
  bool version = false;

  std::string format = "text";
  std::string report;
  std::string definitions;
  std::string windows;
  std::vector<std::string> drives;
  std::string windows_folder;
  std::string backup_folder;
  std::string backup_name;
  std::vector<std::string> only;
  bool yes = false;
  bool remove = false;
  bool merge = false;
  bool quiet = false;
  std::string html;
  bool disable = false;
  bool enable = false;
  bool add = false;
  bool take_out = false;
  bool erase = false;

  std::optional<bool> memory;
  std::optional<bool> registry;
  std::optional<bool> deep_registry;
  std::optional<bool> cookies;
  std::optional<bool> files;

  std::optional<bool> spyware;
  std::optional<bool> dialers;
  std::optional<bool> keyloggers;
  std::optional<bool> trojans;
  std::optional<bool> hijackers;
  std::optional<bool> advanced;
  std::optional<bool> all_cookies;
  std::optional<bool> at_restart;
  std::optional<bool> registry_editor;
};

// Reads the words behind the program's name. Empty when they make sense, else what does not.
std::string ParseOptions(const std::vector<std::string>& words, Options* options);

// What --help says, of the program (null) or of a command.
std::string HelpText(const Command* command);

// The words of a command line of Windows, by the rules of its C programs: blanks part them,
// quotation marks hold them together, and a "\" before one makes it a letter.
std::vector<std::string> SplitCommandLine(std::string_view line);

}  // namespace scourwell
