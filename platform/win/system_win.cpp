// SPDX-License-Identifier: MIT
#include "platform/win/system_win.h"

#include <windows.h>

#include "platform/win/random_bytes.h"
#include "platform/win/unique_handle.h"
#include "platform/win/win_error.h"

namespace scourwell {
namespace {

constexpr DWORD kLongestEnd = 5000;  // milliseconds
constexpr DWORD kWaitStep = 20;

}  // namespace

bool SystemWin::QueryVersion(unsigned record_size, VersionRecord* record) {
  return calls_.QueryVersion(record_size, record);
}

std::string SystemWin::WindowsFolder() { return calls_.WindowsFolder(); }

std::string SystemWin::SystemFolder() { return calls_.SystemFolder(); }

std::string SystemWin::Wow64Folder() { return calls_.Wow64Folder(); }

std::string SystemWin::TemporaryFolder() { return calls_.TemporaryFolder(); }

std::string SystemWin::ShellFolder(int folder_id) { return calls_.ShellFolder(folder_id); }

std::string SystemWin::Environment(const std::string& name) { return calls_.Environment(name); }

std::string SystemWin::ErrorText(std::uint32_t code) { return SystemMessage(code); }

std::uint32_t SystemWin::LastError() { return GetLastError(); }

std::uint32_t SystemWin::OwnProcessId() { return GetCurrentProcessId(); }

std::string SystemWin::RandomBytes(std::size_t count) { return scourwell::RandomBytes(count); }

Outcome SystemWin::TerminateProcess(std::uint32_t process_id, const std::function<bool()>& go_on) {
  const KernelHandle process(calls_.OpenToEnd(process_id));
  if (!process || !::TerminateProcess(process.get(), 0)) return FailedWith(GetLastError());
  // The call only begins the end; the image is in use until it has come.
  const DWORD start = GetTickCount();
  for (;;) {
    const DWORD state = WaitForSingleObject(process.get(), kWaitStep);
    if (state == WAIT_OBJECT_0) return {};
    if (state != WAIT_TIMEOUT) return FailedWith(GetLastError());
    if (!go_on()) return {};
    if (GetTickCount() - start >= kLongestEnd) {
      return Outcome::Failed(kDeviceError, "The process has not ended in time");
    }
  }
}

Outcome SystemWin::DeleteAtReboot(const std::string& path) {
  return calls_.DeleteAtReboot(path) ? Outcome() : FailedWith(GetLastError());
}

}  // namespace scourwell
