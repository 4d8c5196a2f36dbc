// SPDX-License-Identifier: MIT
#include "platform/win/system_win.h"

#include <windows.h>

#include "platform/win/unique_handle.h"
#include "platform/win/win_error.h"

namespace scourwell {

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

Outcome SystemWin::TerminateProcess(std::uint32_t process_id) {
  const KernelHandle process(OpenProcess(PROCESS_TERMINATE, FALSE, process_id));
  if (!process || !::TerminateProcess(process.get(), 0)) return FailedWith(GetLastError());
  return {};
}

Outcome SystemWin::MoveAtReboot(const std::string& path, const std::string& target) {
  return calls_.MoveAtReboot(path, target) ? Outcome() : FailedWith(GetLastError());
}

}  // namespace scourwell
