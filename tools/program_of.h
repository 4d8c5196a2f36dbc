// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "machine/system_folders.h"
#include "platform/files.h"
#include "platform/system.h"

namespace scourwell {

// What a command line starts.
struct ProgramOf {
  std::string path;       // absolute where it was found, else as the command names it
  std::string arguments;  // without the blanks before them
  bool exists = false;
  bool remote = false;  // on another machine: not looked for
};

// Finds the program as the system does: quotes, or the first part that leads to a file where
// blanks stand unquoted; ".exe" may be missing; names without a folder are looked for in the
// Windows and system folders. No other machine is asked. For "rundll32" it is the library that it
// is given.
ProgramOf FindProgram(std::string_view command, Files& files, const SystemFolders& folders,
                      System& system);

// The same, but "rundll32" itself: what a shortcut must name, or the shell be given.
ProgramOf FindStarter(std::string_view command, Files& files, const SystemFolders& folders,
                      System& system);

// The same command with its program in quotes, if it has one that exists and needs them: what
// stands unquoted could start another program. Of several it is the one that was meant, with the
// longest name.
std::string SafeCommand(const std::string& command, Files& files, const SystemFolders& folders,
                        System& system);

}  // namespace scourwell
