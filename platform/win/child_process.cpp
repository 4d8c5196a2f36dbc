// SPDX-License-Identifier: MIT
#include "platform/win/child_process.h"

#include <windows.h>

#include <objbase.h>

#include "platform/win/desktop_win.h"
#include "platform/win/file_calls.h"
#include "platform/win/handed_call.h"
#include "platform/win/unique_handle.h"
#include "platform/win/win_error.h"
#include "platform/win/window_calls.h"
#include "text/paths.h"

namespace scourwell {
namespace {

constexpr DWORD kCallLimit = 10'000;  // milliseconds

// Exit codes of the child besides the entry point's own result: all of them failures no component
// gives, in the range that belongs to customers.
enum : DWORD { kNotLoadable = 0xE0005301, kNoEntry = 0xE0005302 };

// Waits for the process while our windows go on painting themselves. False when time is up.
bool WaitPainting(HANDLE process, DWORD limit) {
  const DWORD start = GetTickCount();
  for (;;) {
    const DWORD spent = GetTickCount() - start;
    if (spent >= limit) return WaitForSingleObject(process, 0) == WAIT_OBJECT_0;
    const DWORD woken = MsgWaitForMultipleObjects(1, &process, FALSE, limit - spent, QS_PAINT);
    if (woken != WAIT_OBJECT_0 + 1) return woken == WAIT_OBJECT_0;
    MSG message;
    while (Calls().Peek(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE)) {
      Calls().Dispatch(&message);
    }
  }
}

bool IsFile(const std::string& path) {
  const DWORD attributes = SystemFileCalls().Attributes(path);
  return attributes != kNoAttributes && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// The program that a command line names without a folder. The system would try our folder and the
// current one first, where anybody may have put one of that name. A name with a folder stays with
// the command line (*path is empty). False: there is no such program.
bool FindTrusted(std::string_view command_line, std::string* path) {
  const bool quoted = command_line.starts_with('"');
  std::string name(quoted ? command_line.substr(1, command_line.find('"', 1) - 1)
                          : command_line.substr(0, command_line.find_first_of(" \t")));
  if (name.empty()) return false;
  if (name.find_first_of("\\/:") != name.npos) return true;
  if (name.find('.') == name.npos) name += ".exe";
  const SystemCalls& system = RunningSystemCalls();
  std::string places = system.SystemFolder() + ";" + system.WindowsFolder() + ";";
  places += system.Environment("PATH") + ";";
  for (std::size_t at = 0, end; (end = places.find(';', at)) != places.npos; at = end + 1) {
    const std::string place = places.substr(at, end - at);
    const std::string found = place + (place.ends_with('\\') ? "" : "\\") + name;
    if (!IsAbsolutePath(place) || !IsFile(found)) continue;
    *path = found;
    return true;
  }
  return false;
}

DWORD CallEntry(const std::string& library, const std::string& name) {
  static_cast<void>(CoInitialize(nullptr));
  const HMODULE module = RunningSystemCalls().Load(library);
  if (!module) return kNotLoadable;
  using Entry = HRESULT(WINAPI*)();
  const auto entry =
      reinterpret_cast<Entry>(reinterpret_cast<void*>(GetProcAddress(module, name.c_str())));
  return entry ? static_cast<DWORD>(entry()) : kNoEntry;
}

}  // namespace

bool RunAsChild(const std::string& arguments, int* exit_code) {
  const std::optional<HandedCall> call = ReceiveCall(arguments);
  if (!call) return false;
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX | SEM_NOGPFAULTERRORBOX);
  *exit_code = static_cast<int>(CallEntry(call->library, call->name));
  return true;
}

Outcome ShellWin::StartProcess(const std::string& command_line, WORD show, KernelHandle* process) {
  std::string program;
  if (!FindTrusted(command_line, &program)) return Outcome::Failed(kFileNotFound);
  PROCESS_INFORMATION info = {};
  if (!calls_.StartProcess(program, command_line, show, &info)) return FailedWith(GetLastError());
  *process = KernelHandle(info.hProcess);
  CloseHandle(info.hThread);
  return {};
}

Outcome ShellWin::CallExport(const std::string& library, const std::string& name) {
  const std::string self = RunningSystemCalls().OwnPath();
  if (self.empty()) return Outcome::Failed(kPathNotFound);
  CallPipe pipe;
  PROCESS_INFORMATION info = {};
  if (!pipe.Send({library, name}) || !calls_.StartRestricted(self, pipe.Arguments(), &info)) {
    return FailedWith(GetLastError());
  }
  CloseHandle(info.hThread);
  const KernelHandle child(info.hProcess);
  if (!WaitPainting(child.get(), kCallLimit)) {
    TerminateProcess(child.get(), 1);
    return Outcome::Failed(kDeviceError, "The component did not answer and was ended")
        .With("Library: ", library);
  }
  DWORD code = 0;
  GetExitCodeProcess(child.get(), &code);
  if (code == kNotLoadable) return Outcome::Failed(kFileNotFound).With("Library: ", library);
  if (code == kNoEntry) return Outcome::Failed(kInvalidCall).With("Library: ", library);
  const auto result = static_cast<HRESULT>(code);
  if (SUCCEEDED(result)) return {};
  return Outcome::Failed(ErrorCode::Component(result), "The component failed or crashed")
      .With("Library: ", library);
}

// WinExec returns only once the new program waits for input, and names no reason.
Outcome ShellWin::Launch(const std::string& command_line) {
  KernelHandle program;
  return StartProcess(command_line, SW_SHOWNOACTIVATE, &program);
}

Outcome ShellWin::StartCommand(const std::string& command_line) {
  KernelHandle program;
  return StartProcess(command_line, SW_SHOWNORMAL, &program);
}

Outcome ShellWin::Run(const std::string& command_line, std::uint32_t limit) {
  KernelHandle program;
  if (Outcome started = StartProcess(command_line, SW_SHOWNORMAL, &program); !started.ok()) {
    return started;
  }
  if (WaitPainting(program.get(), limit)) return {};
  return Outcome::Failed(kDeviceError, "The program is still running");
}

}  // namespace scourwell
