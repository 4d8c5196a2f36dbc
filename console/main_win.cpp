// SPDX-License-Identifier: MIT
#include <new>

#include "console/exit_codes.h"
#include "console/windows_host.h"
#include "engine/version.h"
#include "platform/win/adapters_win.h"
#include "platform/win/child_process.h"
#include "platform/win/program_win.h"
#include "platform/win/system_folding.h"
#include "platform/win/terminal_win.h"
#include "text/text.h"

namespace {

// What a window would say in a box.
class ConsoleShell : public scourwell::ShellWin {
 public:
  explicit ConsoleShell(scourwell::Terminal& terminal) : terminal_(terminal) {}

  void Message(const std::string& text, const std::string&) override {
    terminal_.WriteError("scourwell: " + scourwell::ReplaceAll(text, "\r\n", " ") + "\n");
  }

 private:
  scourwell::Terminal& terminal_;
};

std::string FullPathOf(const std::string& path) {
  return scourwell::RunningSystemCalls().FullPath(path);
}

}  // namespace

int main() {
  using namespace scourwell;
  int exit_code = 0;
  const std::string arguments = CommandArguments();
  if (RunAsChild(arguments, &exit_code)) return exit_code;
  UseSystemFolding();
  TerminalWin terminal;
  try {
    AdaptersWin machine;
    ConsoleShell shell(terminal);
    WindowsHost host(
        terminal,
        {machine.files, machine.registry, machine.SecondView(), machine.profiles, machine.clock,
         machine.system, shell, machine.versions, machine.processes, machine.code_pages},
        FullPathOf, ProgramFolder(), kProgramVersion);
    return RunConsole(SplitCommandLine(arguments), host);
  } catch (const std::bad_alloc&) {
    terminal.WriteError("scourwell: not enough memory\n");
    return kIncomplete;
  }
}
