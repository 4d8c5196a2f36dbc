#include "platform/win/system_win.h"

#include <windows.h>

#include <shlobj.h>

#include "platform/win/late_bind.h"
#include "platform/win/unique_handle.h"
#include "platform/win/win_error.h"

namespace scourwell {
namespace {

// The extended record; the headers for the oldest target know only the basic one.
struct ExtendedVersion {
  OSVERSIONINFOA basic;
  WORD service_pack_major;
  WORD service_pack_minor;
  WORD suite_mask;
  BYTE product_type;
  BYTE reserved;
};
static_assert(sizeof(ExtendedVersion) == kExtendedVersionRecord);
static_assert(sizeof(OSVERSIONINFOA) == kBasicVersionRecord);

std::string ThroughFolderPath(int folder_id) {
  using GetFolderPath = HRESULT(WINAPI*)(HWND, int, HANDLE, DWORD, LPSTR);
  // Shell version 5 has it itself; before, it comes with a library of its own.
  auto get = LateBind<GetFolderPath>("shell32.dll", "SHGetFolderPathA");
  if (!get) get = LateBind<GetFolderPath>("shfolder.dll", "SHGetFolderPathA");
  char path[MAX_PATH] = "";
  if (!get || get(nullptr, folder_id, nullptr, 0, path) != S_OK) return {};
  return path;
}

std::string ThroughFolderLocation(int folder_id) {
  LPITEMIDLIST list = nullptr;
  if (SHGetSpecialFolderLocation(nullptr, folder_id, &list) != NOERROR || !list) return {};
  char path[MAX_PATH] = "";
  const BOOL found = SHGetPathFromIDListA(list, path);
  LPMALLOC allocator = nullptr;
  if (SHGetMalloc(&allocator) == NOERROR && allocator) {
    allocator->Free(list);
    allocator->Release();
  }
  return found ? path : std::string();
}

}  // namespace

bool SystemWin::QueryVersion(unsigned record_size, VersionRecord* record) {
  ExtendedVersion version = {};
  version.basic.dwOSVersionInfoSize = record_size;
  if (!GetVersionExA(&version.basic)) return false;
  record->major = version.basic.dwMajorVersion;
  record->minor = version.basic.dwMinorVersion;
  record->build = version.basic.dwBuildNumber;
  record->platform = version.basic.dwPlatformId;
  record->csd_version.assign(version.basic.szCSDVersion, sizeof version.basic.szCSDVersion);
  record->service_pack_major = version.service_pack_major;
  record->service_pack_minor = version.service_pack_minor;
  record->suite_mask = version.suite_mask;
  record->product_type = version.product_type;
  return true;
}

std::string SystemWin::WindowsFolder() {
  char path[256];
  const UINT size = GetWindowsDirectoryA(path, sizeof path);
  return size == 0 || size >= sizeof path ? std::string() : std::string(path, size);
}

std::string SystemWin::SystemFolder() {
  char path[256];
  const UINT size = GetSystemDirectoryA(path, sizeof path);
  return size == 0 || size >= sizeof path ? std::string() : std::string(path, size);
}

std::string SystemWin::TemporaryFolder() {
  char path[512];
  const DWORD size = GetTempPathA(sizeof path, path);
  return size == 0 || size >= sizeof path ? std::string() : std::string(path, size);
}

std::string SystemWin::ShellFolder(int folder_id) {
  const std::string path = ThroughFolderPath(folder_id);
  return path.empty() ? ThroughFolderLocation(folder_id) : path;
}

std::string SystemWin::Environment(const std::string& name) {
  char value[1024];
  const DWORD size = GetEnvironmentVariableA(name.c_str(), value, sizeof value);
  return size == 0 || size >= sizeof value ? std::string() : std::string(value, size);
}

std::string SystemWin::ErrorText(std::uint32_t code) { return SystemMessage(code); }

std::uint32_t SystemWin::LastError() { return GetLastError(); }

std::uint32_t SystemWin::OwnProcessId() { return GetCurrentProcessId(); }

Outcome SystemWin::TerminateProcess(std::uint32_t process_id) {
  const KernelHandle process(OpenProcess(PROCESS_TERMINATE, FALSE, process_id));
  if (!process || !::TerminateProcess(process.get(), 0)) return FailedWith(GetLastError());
  return {};
}

Outcome SystemWin::MoveAtReboot(const std::string& path, const std::string& target) {
  const BOOL moved = MoveFileExA(path.c_str(), target.empty() ? nullptr : target.c_str(),
                                 MOVEFILE_REPLACE_EXISTING | MOVEFILE_DELAY_UNTIL_REBOOT);
  return moved ? Outcome() : FailedWith(GetLastError());
}

}  // namespace scourwell
