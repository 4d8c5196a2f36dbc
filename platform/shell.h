// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "platform/outcome.h"

namespace scourwell {

// A program that asks for more rights than we have: only Shell::Start can get them from the user.
inline constexpr ErrorCode kNeedsMoreRights = ErrorCode::System(740);

// What the desktop does for us.
class Shell {
 public:
  virtual ~Shell() = default;

  // Opens a document, folder or address with its associated program.
  virtual Outcome Open(const std::string& path) = 0;
  // Shows the system's property sheet of a file or folder.
  virtual Outcome ShowProperties(const std::string& path) = 0;
  // Starts a program with arguments in a normal window and does not wait for it.
  virtual Outcome Start(const std::string& program, const std::string& arguments) = 0;
  // Starts a command line as it stands, the program being looked for as the system does; its window
  // is shown but not activated. Does not wait.
  virtual Outcome Launch(const std::string& command_line) = 0;
  // Starts a command line and waits until it has ended, so many milliseconds at most; after that it
  // is left running and the result is kDeviceError.
  virtual Outcome Run(const std::string& command_line, std::uint32_t limit) = 0;
  // Loads a library and calls one of its exported functions without arguments, in a
  // process of its own that is ended after 10 s (kDeviceError, as when it crashes). kFileNotFound:
  // not loadable; kInvalidCall: no such export; a failing HRESULT comes back as it is, as a
  // component's.
  virtual Outcome CallExport(const std::string& library, const std::string& name) = 0;
  // The path that a shortcut file leads to; empty when it leads to no file. The target need not
  // exist: it is not looked for, the shortcut is not changed, and no window is shown.
  virtual Outcome ShortcutTarget(const std::string& link, std::string* target) = 0;
  // What follows the target in the command that a shortcut file runs; may be empty.
  virtual Outcome ShortcutArguments(const std::string& link, std::string* arguments) = 0;
  // Makes a shortcut file. kFileExists when anything of that name is there; the target need not
  // exist.
  virtual Outcome CreateShortcut(const std::string& link, const std::string& target,
                                 const std::string& arguments) = 0;
  // Starts a whole command line in a normal window, the program found as the system finds it, and
  // does not wait for it. kFileNotFound: there is no such program; or kNeedsMoreRights.
  virtual Outcome StartCommand(const std::string& command_line) = 0;
  // Shows a page of a compiled help file in the system's viewer, in a window that blocks none of
  // ours and goes with the program. kFileNotFound: no such file; kDeviceError: the system has no
  // viewer; kPathFileAccess: the viewer refuses. The caller makes sure that the file is whole: with
  // a damaged one some viewers complain to the user and claim success.
  virtual Outcome ShowHelp(const std::string& file, const std::string& page) = 0;
  // A plain message box with OK.
  virtual void Message(const std::string& text, const std::string& title) = 0;
};

}  // namespace scourwell
