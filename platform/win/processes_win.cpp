#include "platform/win/processes_win.h"

#include <windows.h>

#include <psapi.h>
#include <tlhelp32.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "platform/file_utils.h"
#include "platform/win/late_bind.h"
#include "platform/win/unique_handle.h"
#include "platform/win/win_error.h"

namespace scourwell {
namespace {

constexpr DWORD kFirstBuffer = 8;          // bytes
constexpr DWORD kLargestBuffer = 1 << 20;  // a quarter of a million processes
constexpr DWORD kModuleBuffer = 200;       // bytes; the executable comes first
constexpr DWORD kLongestModule = 500;      // characters
constexpr std::size_t kMostModules = 1024;

// Windows 95 and 98 have no psapi, Windows NT 4 no snapshots: both are bound at run time.
struct StatusCalls {
  using EnumIds = BOOL(WINAPI*)(DWORD*, DWORD, DWORD*);
  using EnumModules = BOOL(WINAPI*)(HANDLE, HMODULE*, DWORD, LPDWORD);
  using ModuleName = DWORD(WINAPI*)(HANDLE, HMODULE, LPSTR, DWORD);
  using ImageName = BOOL(WINAPI*)(HANDLE, DWORD, LPSTR, DWORD*);

  EnumIds enum_ids = LateBind<EnumIds>("psapi.dll", "EnumProcesses");
  EnumModules enum_modules = LateBind<EnumModules>("psapi.dll", "EnumProcessModules");
  ModuleName module_name = LateBind<ModuleName>("psapi.dll", "GetModuleFileNameExA");

  ImageName image_name = LateBind<ImageName>("kernel32.dll", "QueryFullProcessImageNameA");

  bool complete() const { return enum_ids && enum_modules && module_name; }
};

struct SnapshotCalls {
  using Create = HANDLE(WINAPI*)(DWORD, DWORD);
  using Walk = BOOL(WINAPI*)(HANDLE, PROCESSENTRY32*);

  Create create = LateBind<Create>("kernel32.dll", "CreateToolhelp32Snapshot");
  Walk first = LateBind<Walk>("kernel32.dll", "Process32First");
  Walk next = LateBind<Walk>("kernel32.dll", "Process32Next");

  bool complete() const { return create && first && next; }
};

Outcome AllIds(const StatusCalls& calls, std::vector<DWORD>* ids) {
  for (DWORD bytes = kFirstBuffer; bytes <= kLargestBuffer; bytes *= 2) {
    ids->assign(bytes / sizeof(DWORD), 0);
    DWORD returned = 0;
    if (!calls.enum_ids(ids->data(), bytes, &returned)) return FailedWith(GetLastError());
    if (returned < bytes) {
      ids->resize(returned / sizeof(DWORD));
      return {};
    }
  }
  return Outcome::Failed(kOutOfMemory);
}

// Not what GetWindowsDirectory says: on a terminal server that is the user's own folder.
std::string SystemRoot() {
  char folder[MAX_PATH + 1] = "";
  const UINT length = GetSystemDirectoryA(folder, sizeof folder);
  return std::string(FolderPart(length < sizeof folder ? folder : ""));
}

bool Describe(const StatusCalls& calls, DWORD id, const std::string& windows, ProcessEntry* entry) {
  const KernelHandle process(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, id));
  if (!process) return false;
  HMODULE modules[kModuleBuffer / sizeof(HMODULE)];
  DWORD needed = 0;
  char name[kLongestModule + 1] = "";
  if (!calls.enum_modules(process.get(), modules, sizeof modules, &needed) || needed == 0) {
    // A 64-bit process hides its modules, but newer systems tell where its image lies.
    DWORD size = kLongestModule;
    if (!calls.image_name || !calls.image_name(process.get(), 0, name, &size)) return false;
  } else if (calls.module_name(process.get(), modules[0], name, kLongestModule) == 0) {
    return false;
  }
  *entry = {PlainImagePath(name, windows), id, GetPriorityClass(process.get())};
  return true;
}

}  // namespace

Outcome ProcessesWin::ListByStatus(const Visit& visit) {
  const StatusCalls calls;
  if (!calls.complete()) return FailedWith(ERROR_CALL_NOT_IMPLEMENTED);
  std::vector<DWORD> ids;
  if (Outcome listed = AllIds(calls, &ids); !listed.ok()) return listed;
  const std::string windows = SystemRoot();
  for (const DWORD id : ids) {
    ProcessEntry entry;
    if (Describe(calls, id, windows, &entry) && !visit(entry)) break;
  }
  return {};
}

Outcome ProcessesWin::ListBySnapshot(const Visit& visit) {
  const SnapshotCalls calls;
  if (!calls.complete()) return FailedWith(ERROR_CALL_NOT_IMPLEMENTED);
  const FileHandle snapshot(calls.create(TH32CS_SNAPPROCESS, 0));
  if (!snapshot) return FailedWith(GetLastError());
  PROCESSENTRY32 entry = {};
  entry.dwSize = sizeof entry;
  for (BOOL more = calls.first(snapshot.get(), &entry); more;
       more = calls.next(snapshot.get(), &entry)) {
    const std::size_t length = strnlen(entry.szExeFile, sizeof entry.szExeFile);
    if (!visit({std::string(entry.szExeFile, length), entry.th32ProcessID, 0})) break;
  }
  return {};
}

std::vector<std::string> ProcessesWin::Modules(std::uint32_t process_id) {
  const StatusCalls calls;
  if (!calls.complete()) return {};
  const KernelHandle process(
      OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, process_id));
  std::vector<HMODULE> modules(kMostModules);
  DWORD needed = 0;
  if (!process ||
      !calls.enum_modules(process.get(), modules.data(),
                          static_cast<DWORD>(kMostModules * sizeof(HMODULE)), &needed)) {
    return {};
  }
  modules.resize(std::min<std::size_t>(needed / sizeof(HMODULE), kMostModules));
  std::vector<std::string> names;
  for (const HMODULE module : modules) {
    char name[kLongestModule + 1] = "";
    if (calls.module_name(process.get(), module, name, kLongestModule) != 0) names.push_back(name);
  }
  return names;
}

}  // namespace scourwell
