// SPDX-License-Identifier: MIT
#include <windows.h>

#include "engine/version.h"
#include "machine/file_utils.h"
#include "platform/win/child_process.h"
#include "platform/win/code_pages_win.h"
#include "platform/win/desktop_win.h"
#include "platform/win/files_win.h"
#include "platform/win/processes_win.h"
#include "platform/win/program_win.h"
#include "platform/win/pump_win.h"
#include "platform/win/registry_win.h"
#include "platform/win/single_instance.h"
#include "platform/win/system_folding.h"
#include "platform/win/system_win.h"
#include "platform/win/versions_win.h"
#include "shell/application.h"
#include "shell/frm_main.h"
#include "shell/start_request.h"
#include "widgets/message_box.h"

namespace {

// The folder that the program stands in.
std::string ApplicationFolder() {
  const std::string path = scourwell::RunningSystemCalls().OwnPath();
  const std::string folder(scourwell::FolderPart(path));
  return folder.size() == 2 ? folder + "\\" : folder;  // a drive root keeps its backslash
}

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

// The one place that makes real adapters.
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
  FilesWin files;
  RegistryWin registry;
  RegistryWin registry64(RegistryWin::kView64);
  ProfilesWin profiles;
  ClockWin clock;
  SystemWin system;
  ShellWin shell;
  VersionsWin versions;
  ProcessesWin processes;
  PumpWin pump;
  CodePagesWin code_pages;
  Application app({files, registry, RegistryWin::HasTwoViews() ? &registry64 : nullptr, profiles,
                   clock, system, shell, versions, processes, pump, code_pages},
                  ApplicationFolder(), kProgramVersion);
  if (!single.is_first()) return SayWhyNot(app, answer, command.path);
  frmMain main_window(app, pump, instance);
  return main_window.Run(command, show);
}
