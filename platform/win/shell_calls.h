// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <string>

namespace scourwell {

// The calls of the desktop in which the families of Windows differ. What fails leaves its reason in
// the last error, where nothing else is said.
class ShellCalls {
 public:
  virtual ~ShellCalls() = default;

  // The command line as it stands. An empty program is looked for as the system does.
  virtual bool StartProcess(const std::string& program, const std::string& command_line, WORD show,
                            PROCESS_INFORMATION* process) const = 0;
  // A hidden process with our inheritable handles and as few rights as the system can give it.
  virtual bool StartRestricted(const std::string& program, const std::string& arguments,
                               PROCESS_INFORMATION* process) const = 0;
  // What ShellExecute answers: above 32 for success.
  virtual INT_PTR Execute(const char* verb, const std::string& file,
                          const std::string& arguments) const = 0;
  virtual bool ShowProperties(const std::string& path) const = 0;

  // The viewer of compiled help, from the system's folder alone: the folder that the program was
  // started in may be anybody's. The second gives its window, null when it refuses.
  virtual bool HasHelpViewer() const = 0;
  virtual HWND ShowHelp(const std::string& page) const = 0;
  virtual void CloseHelp() const = 0;

  // Shortcut files. COM must be ready. The target is empty when the shortcut leads to no file.
  virtual HRESULT ReadShortcut(const std::string& link, std::string* target,
                               std::string* arguments) const = 0;
  virtual HRESULT WriteShortcut(const std::string& link, const std::string& target,
                                const std::string& arguments) const = 0;
};

// The calls of Windows NT, 2000, XP and later.
const ShellCalls& NtShellCalls();
// The calls of Windows 95, 98 and Me.
const ShellCalls& W9xShellCalls();
// Those of the Windows that runs.
const ShellCalls& RunningShellCalls();

}  // namespace scourwell
