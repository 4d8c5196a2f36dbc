// SPDX-License-Identifier: MIT
#include "platform/win/child_process.h"

#include <windows.h>

#include <objbase.h>

#include "platform/win/desktop_win.h"
#include "platform/win/handed_call.h"
#include "platform/win/unique_handle.h"
#include "platform/win/win_error.h"
#include "platform/win/window_calls.h"

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
  PROCESS_INFORMATION info = {};
  if (!calls_.StartProcess(command_line, show, &info)) return FailedWith(GetLastError());
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
