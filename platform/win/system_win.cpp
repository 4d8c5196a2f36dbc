// SPDX-License-Identifier: MIT
#include "platform/win/system_win.h"

#include <windows.h>

#include "platform/win/late_bind.h"
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

// The oldest Windows have no source. Nobody else works on such a machine at the same time, so that
// the moment will do.
std::string SystemWin::RandomBytes(std::size_t count) {
  using Generate = BOOLEAN(WINAPI*)(void*, ULONG);
  using Acquire = BOOL(WINAPI*)(ULONG_PTR*, const char*, const char*, DWORD, DWORD);
  using Fill = BOOL(WINAPI*)(ULONG_PTR, DWORD, BYTE*);
  constexpr DWORD kAnyProvider = 1;           // PROV_RSA_FULL
  constexpr DWORD kWithoutKeys = 0xF0000000;  // CRYPT_VERIFYCONTEXT
  std::string bytes(count, '\0');
  const auto size = static_cast<DWORD>(count);
  if (const auto generate = LateBind<Generate>("advapi32.dll", "SystemFunction036")) {
    if (generate(bytes.data(), size)) return bytes;
  }
  ULONG_PTR provider = 0;
  const auto acquire = LateBind<Acquire>("advapi32.dll", "CryptAcquireContextA");
  const auto fill = LateBind<Fill>("advapi32.dll", "CryptGenRandom");
  if (acquire && fill && acquire(&provider, nullptr, nullptr, kAnyProvider, kWithoutKeys)) {
    if (fill(provider, size, reinterpret_cast<BYTE*>(bytes.data()))) return bytes;
  }
  LARGE_INTEGER counter = {};
  for (char& c : bytes) {
    Sleep(1);
    QueryPerformanceCounter(&counter);
    c = static_cast<char>(counter.LowPart ^ counter.LowPart >> 8 ^ GetTickCount());
  }
  return bytes;
}

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
