// SPDX-License-Identifier: MIT
#include <windows.h>

#include "engine/version.h"
#include "platform/win/adapters_win.h"
#include "platform/win/child_process.h"
#include "platform/win/current_user.h"
#include "platform/win/program_win.h"
#include "platform/win/pump_win.h"
#include "platform/win/single_instance.h"
#include "platform/win/system_folding.h"
#include "shell/application.h"
#include "shell/frm_main.h"
#include "shell/start_request.h"
#include "widgets/message_box.h"

namespace {

// A second start that came to nothing. It reads the language, and no more.
int SayWhyNot(scourwell::Application& app, scourwell::StartAnswer answer, const std::string& path) {
  using namespace scourwell;
  app.ReadLanguage();
  const Language& language = app.language();
  std::string text = language.Text(answer == StartAnswer::Busy      ? Caption::StartBusy
                                   : answer == StartAnswer::Refused ? Caption::StartRefused
                                                                    : Caption::StartNoAnswer);
  if (answer != StartAnswer::None && !path.empty()) text += "\r\n\r\n" + path;
  ShowMessage(text, language.Text(Caption::ProgramName));
  return answer == StartAnswer::None ? 1 : 0;
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int show) {
  using namespace scourwell;
  int exit_code = 0;
  const std::string arguments = CommandArguments();
  if (RunAsChild(arguments, &exit_code)) return exit_code;
  // What it names may stand in the folder that we are about to leave.
  CommandLine command = ParseCommandLine(arguments);
  if (command.kind == CommandLine::Kind::ScanPath) {
    const std::string full = RunningSystemCalls().FullPath(command.path);
    if (!full.empty()) command.path = full;
  }
  RunningSystemCalls().EnterSystemFolder();
  SingleInstance single;
  UseSystemFolding();
  StartAnswer answer = StartAnswer::None;
  if (!single.is_first()) {
    answer = single.HandOver(instance, frmMain::kName, PackRequest(command));
    if (answer == StartAnswer::Taken) return 0;
  }
  AdaptersWin machine;
  ShellWin shell;
  PumpWin pump;
  Application app(
      {machine.files, machine.registry, machine.SecondView(), machine.profiles, machine.clock,
       machine.system, shell, machine.versions, machine.processes, pump, machine.code_pages},
      ProgramFolder(), kProgramVersion);
  if (!single.is_first()) return SayWhyNot(app, answer, command.path);
  app.tools().UseUser(CurrentUser());
  frmMain main_window(app, pump, instance);
  return main_window.Run(command, show);
}
