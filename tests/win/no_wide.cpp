// SPDX-License-Identifier: MIT

// Linked into a copy of the program, for the tests alone: takes the wide functions away from it, as
// Windows 95, 98 and Me do, which export them but let them fail. Wine lets them work whatever
// version it plays. What is called all the same is written to wide-calls.txt beside the program.
#include <windows.h>

#include <cstdint>
#include <cstring>
#include <string>

namespace {

struct WideCall {
  const char* name;
  std::uint16_t bytes;  // of its arguments, which it takes off the stack
};
constexpr WideCall kCalls[] = {
#include "wide_calls.inc"
};
constexpr std::size_t kCount = std::size(kCalls);

bool noted[kCount];

void Note(std::size_t call) {
  if (noted[call]) return;
  noted[call] = true;
  char path[MAX_PATH] = "";
  GetModuleFileNameA(nullptr, path, sizeof path);
  const std::string file = std::string(path, std::strrchr(path, '\\') + 1) + "wide-calls.txt";
  HANDLE list = CreateFileA(file.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                            nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  const std::string line = std::string(kCalls[call].name) + "\n";
  DWORD written = 0;
  WriteFile(list, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
  CloseHandle(list);
}

// The registry's functions return their errors, the others set them.
bool ReturnsError(const char* name) {
  return std::strncmp(name, "Reg", 3) == 0 && std::strncmp(name, "Register", 8) != 0;
}

DWORD WINAPI Refuse(std::size_t call) {
  Note(call);
  SetLastError(ERROR_CALL_NOT_IMPLEMENTED);
  return ReturnsError(kCalls[call].name) ? ERROR_CALL_NOT_IMPLEMENTED : 0;
}

// One piece of code for each function: it calls Refuse with its number and takes the arguments
// away.
#pragma pack(push, 1)
struct Stub {
  std::uint8_t push = 0x68;
  std::uint32_t call;
  std::uint8_t load = 0xB8;  // into eax
  std::uint32_t refuse = reinterpret_cast<std::uint32_t>(&Refuse);
  std::uint8_t go[2] = {0xFF, 0xD0};  // where eax leads
  std::uint8_t leave = 0xC2;
  std::uint16_t bytes;
};
#pragma pack(pop)

Stub* stubs;

void MakeStubs() {
  stubs = static_cast<Stub*>(VirtualAlloc(nullptr, kCount * sizeof(Stub), MEM_COMMIT | MEM_RESERVE,
                                          PAGE_EXECUTE_READWRITE));
  for (std::size_t i = 0; i < kCount; ++i) {
    Stub stub;
    stub.call = i;
    stub.bytes = kCalls[i].bytes;
    stubs[i] = stub;
  }
}

const void* StubOf(const char* name) {
  for (std::size_t i = 0; i < kCount; ++i) {
    if (std::strcmp(kCalls[i].name, name) == 0) return &stubs[i];
  }
  return nullptr;
}

decltype(&GetProcAddress) get_proc_address;

FARPROC WINAPI FindFunction(HMODULE module, LPCSTR name) {
  // These systems lack nearly all that this library has on others.
  if (module == GetModuleHandleA("ntdll.dll")) return nullptr;
  const FARPROC found = get_proc_address(module, name);
  const void* stub = found && HIWORD(name) != 0 ? StubOf(name) : nullptr;
  return stub ? reinterpret_cast<FARPROC>(const_cast<void*>(stub)) : found;
}

const void* SubstituteOf(const char* name) {
  if (std::strcmp(name, "GetProcAddress") != 0) return StubOf(name);
  return reinterpret_cast<const void*>(&FindFunction);
}

void Replace(IMAGE_THUNK_DATA* address, const void* function) {
  DWORD before = 0;
  VirtualProtect(address, sizeof *address, PAGE_READWRITE, &before);
  address->u1.Function = reinterpret_cast<std::uint32_t>(function);
  VirtualProtect(address, sizeof *address, before, &before);
}

// Before any other constructor.
__attribute__((constructor(101))) void TakeWideCalls() {
  MakeStubs();
  get_proc_address = GetProcAddress;
  auto* const base = reinterpret_cast<char*>(GetModuleHandleA(nullptr));
  const auto* head = reinterpret_cast<IMAGE_DOS_HEADER*>(base);
  const auto* image = reinterpret_cast<IMAGE_NT_HEADERS*>(base + head->e_lfanew);
  const DWORD imports =
      image->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
  auto* library = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + imports);
  for (; library->Name != 0; ++library) {
    auto* wanted = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library->OriginalFirstThunk);
    auto* address = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library->FirstThunk);
    for (; wanted->u1.AddressOfData != 0; ++wanted, ++address) {
      if (IMAGE_SNAP_BY_ORDINAL(wanted->u1.Ordinal)) continue;
      const auto* entry = reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(base + wanted->u1.AddressOfData);
      const auto* name = reinterpret_cast<const char*>(entry->Name);
      if (const void* other = SubstituteOf(name)) Replace(address, other);
    }
  }
}

}  // namespace
