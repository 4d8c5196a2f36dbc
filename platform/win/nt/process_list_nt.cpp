// SPDX-License-Identifier: MIT
#include "platform/win/nt/process_list_nt.h"

#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <cstring>

#include "platform/win/family.h"
#include "platform/win/late_bind.h"
#include "platform/win/native_text.h"
#include "platform/win/nt/device_path.h"
#include "platform/win/system_calls.h"
#include "platform/win/unique_handle.h"
#include "platform/win/win_error.h"
#include "text/paths.h"

namespace scourwell {
namespace {

constexpr DWORD kFirstBuffer = 8;          // bytes
constexpr DWORD kLargestBuffer = 1 << 20;  // a quarter of a million processes
constexpr DWORD kLongestModule = 32'768;   // characters
constexpr std::size_t kMostModules = 1024;
constexpr DWORD kQueryLimited = 0x1000;  // from Vista on; opens what refuses the full right

// NT 4 has no psapi, and only newer systems the two better ways to ask for an image's path.
struct StatusCalls {
  using EnumIds = BOOL(WINAPI*)(DWORD*, DWORD, DWORD*);
  using EnumModules = BOOL(WINAPI*)(HANDLE, HMODULE*, DWORD, LPDWORD);
  using ModuleName = DWORD(WINAPI*)(HANDLE, HMODULE, LPWSTR, DWORD);
  using DeviceName = DWORD(WINAPI*)(HANDLE, LPWSTR, DWORD);
  using ImageName = BOOL(WINAPI*)(HANDLE, DWORD, LPWSTR, DWORD*);

  EnumIds enum_ids = LateBind<EnumIds>("psapi.dll", "EnumProcesses");
  EnumModules enum_modules = LateBind<EnumModules>("psapi.dll", "EnumProcessModules");
  ModuleName module_name = LateBind<ModuleName>("psapi.dll", "GetModuleFileNameExW");
  DeviceName device_name = LateBind<DeviceName>("psapi.dll", "GetProcessImageFileNameW");
  ImageName image_name = LateBind<ImageName>("kernel32.dll", "QueryFullProcessImageNameW");

  bool complete() const { return enum_ids && enum_modules && module_name; }
};

const StatusCalls& Calls() {
  static const StatusCalls calls;
  return calls;
}

Outcome AllIds(std::vector<DWORD>* ids) {
  for (DWORD bytes = kFirstBuffer; bytes <= kLargestBuffer; bytes *= 2) {
    ids->assign(bytes / sizeof(DWORD), 0);
    DWORD returned = 0;
    if (!Calls().enum_ids(ids->data(), bytes, &returned)) return FailedWith(GetLastError());
    if (returned < bytes) {
      ids->resize(returned / sizeof(DWORD));
      return {};
    }
  }
  return Outcome::Failed(kOutOfMemory);
}

// The system's own record of a process, of which only these fields keep their place.
struct ProcessRecord {
  ULONG next;  // bytes to the next one; 0 for the last
  ULONG threads;
  BYTE times[0x30];
  USHORT name_bytes;
  USHORT name_room;
  const wchar_t* name;
  ULONG priority;
  ULONG id;
};
static_assert(offsetof(ProcessRecord, name_bytes) == 0x38 && offsetof(ProcessRecord, id) == 0x44);

// The way of NT 4.
Outcome AllIdsNatively(std::vector<DWORD>* ids) {
  using Query = LONG(WINAPI*)(ULONG, void*, ULONG, ULONG*);
  constexpr ULONG kProcessInformation = 5;
  constexpr LONG kTooSmall = static_cast<LONG>(0xC0000004);
  const auto query = LateBind<Query>("ntdll.dll", "NtQuerySystemInformation");
  if (!query) return FailedWith(ERROR_CALL_NOT_IMPLEMENTED);
  std::vector<char> records(1 << 16);
  LONG status = kTooSmall;
  for (; status == kTooSmall && records.size() < (16u << 20); records.resize(records.size() * 2)) {
    ULONG size = 0;
    status = query(kProcessInformation, records.data(), static_cast<ULONG>(records.size()), &size);
    if (status >= 0) break;
  }
  if (status < 0) return Outcome::Failed(kDeviceError);
  ids->clear();
  for (std::size_t at = 0; at + sizeof(ProcessRecord) <= records.size();) {
    ProcessRecord record;
    std::memcpy(&record, records.data() + at, sizeof record);
    ids->push_back(record.id);
    if (record.next == 0) break;
    at += record.next;
  }
  return {};
}

// What a process without psapi says of its own image: it could say anything, but nobody else tells.
std::string OwnWord(HANDLE process) {
  struct BasicInformation {
    void* exit_status;
    const BYTE* peb;
    void* rest[4];
  };
  struct CountedText {
    USHORT bytes;
    USHORT room;
    const wchar_t* text;
  };
  constexpr std::size_t kParameters = 0x10;  // in the process's block
  constexpr std::size_t kImagePath = 0x38;   // in its parameters
  using Query = LONG(WINAPI*)(HANDLE, ULONG, void*, ULONG, ULONG*);
  const auto query = LateBind<Query>("ntdll.dll", "NtQueryInformationProcess");
  BasicInformation basic = {};
  const BYTE* parameters = nullptr;
  CountedText path = {};
  const auto read = [&](const void* from, void* to, std::size_t size) {
    return from && ReadProcessMemory(process, from, to, size, nullptr);
  };
  if (!query || query(process, 0, &basic, sizeof basic, nullptr) < 0 || !basic.peb ||
      !read(basic.peb + kParameters, &parameters, sizeof parameters) || !parameters ||
      !read(parameters + kImagePath, &path, sizeof path)) {
    return {};
  }
  std::wstring text(path.bytes / sizeof(wchar_t), L'\0');
  return read(path.text, text.data(), text.size() * sizeof(wchar_t)) ? FromWide(text)
                                                                     : std::string();
}

std::string ModulePath(HANDLE process, HMODULE module) {
  std::vector<wchar_t> name(kLongestModule);
  const DWORD size = Calls().module_name(process, module, name.data(), kLongestModule);
  return FromWide({name.data(), size < kLongestModule ? size : 0});
}

// The best way that this system has. A 64-bit process hides its modules from us, but newer systems
// tell where its image lies.
std::string ImagePath(HANDLE process) {
  const StatusCalls& calls = Calls();
  std::vector<wchar_t> name(kLongestModule);
  DWORD size = kLongestModule;
  if (calls.image_name && calls.image_name(process, 0, name.data(), &size)) {
    return FromWide({name.data(), size});
  }
  if (calls.device_name) {
    size = calls.device_name(process, name.data(), kLongestModule);
    const std::string path = DosPathOf(FromWide({name.data(), size}));
    if (!path.empty()) return path;
  }
  if (!calls.complete()) return OwnWord(process);
  HMODULE first = nullptr;
  DWORD needed = 0;
  if (!calls.enum_modules(process, &first, sizeof first, &needed) || needed == 0) return {};
  return ModulePath(process, first);
}

KernelHandle OpenToAsk(DWORD id) {
  KernelHandle process(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, id));
  if (!process) process = KernelHandle(OpenProcess(kQueryLimited, FALSE, id));
  return process;
}

// Not what GetWindowsDirectory says: on a terminal server that is the user's own folder.
std::string SystemRoot() { return std::string(FolderPart(RunningSystemCalls().SystemFolder())); }

}  // namespace

Outcome ListProcessesNt(const Processes::Visit& visit) {
  if (!HasWideCalls()) return FailedWith(ERROR_CALL_NOT_IMPLEMENTED);
  std::vector<DWORD> ids;
  if (Outcome listed = Calls().complete() ? AllIds(&ids) : AllIdsNatively(&ids); !listed.ok()) {
    return listed;
  }
  const std::string windows = SystemRoot();
  for (const DWORD id : ids) {
    const KernelHandle process = OpenToAsk(id);
    if (!process) continue;
    const std::string path = PlainImagePath(ImagePath(process.get()), windows);
    if (!path.empty() && !visit({path, id, GetPriorityClass(process.get())})) break;
  }
  return {};
}

std::vector<std::string> ModulesNt(std::uint32_t process_id) {
  if (!HasWideCalls() || !Calls().complete()) return {};
  const KernelHandle process(
      OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, process_id));
  std::vector<HMODULE> modules(kMostModules);
  DWORD needed = 0;
  if (!process ||
      !Calls().enum_modules(process.get(), modules.data(),
                            static_cast<DWORD>(kMostModules * sizeof(HMODULE)), &needed)) {
    return {};
  }
  modules.resize(std::min<std::size_t>(needed / sizeof(HMODULE), kMostModules));
  std::vector<std::string> names;
  for (const HMODULE module : modules) {
    std::string name = ModulePath(process.get(), module);
    if (!name.empty()) names.push_back(std::move(name));
  }
  return names;
}

}  // namespace scourwell
