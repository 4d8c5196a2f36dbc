// SPDX-License-Identifier: MIT

// The contract tests' machine made of the real adapters, in a folder and a key of its own.
#include <windows.h>

#include "guard/key_remover.h"
#include "platform/shell.h"
#include "platform/win/code_pages_win.h"
#include "platform/win/desktop_win.h"
#include "platform/win/family.h"
#include "platform/win/files_win.h"
#include "platform/win/late_bind.h"
#include "platform/win/native_text.h"
#include "platform/win/processes_win.h"
#include "platform/win/pump_win.h"
#include "platform/win/registry_win.h"
#include "platform/win/system_win.h"
#include "platform/win/versions_win.h"
#include "tests/contract/contract.h"
#include "tests/helpers.h"

namespace scourwell::test {
namespace {

constexpr char kFolder[] = "C:\\contract";
constexpr char kKey[] = "Software\\ScourwellContract";
// What the system moves at the next start.
constexpr char kSessionManager[] = "SYSTEM\\CurrentControlSet\\Control\\Session Manager";
constexpr char kMoves[] = "PendingFileRenameOperations";

// Whether this run is to show the side of Windows 95, 98 and Me.
bool Is9xSide() {
  static const bool asked = RunningSystemCalls().Environment("SCOURWELL_FAMILY") == "9x";
  return asked;
}

// Made without help of what is under test.
std::wstring Native(const std::string& path) { return L"\\\\?\\" + Wide(path); }

// Deletes a folder that the tests made, with everything in it.
void DeleteTree(const std::wstring& folder) {
  WIN32_FIND_DATAW data;
  const HANDLE find = FindFirstFileW((folder + L"\\*").c_str(), &data);
  if (find == INVALID_HANDLE_VALUE) return;
  do {
    const std::wstring name = data.cFileName;
    if (name == L"." || name == L"..") continue;
    const std::wstring path = folder + L"\\" + name;
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    if (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
      DeleteTree(path);
    } else {
      DeleteFileW(path.c_str());
    }
  } while (FindNextFileW(find, &data));
  FindClose(find);
  RemoveDirectoryW(folder.c_str());
}

// "\Registry\User\..." of a key of this user; empty where there are no such names.
std::wstring NativeName(const std::string& path) {
  using NtQueryKey = LONG(WINAPI*)(HANDLE, int, void*, ULONG, ULONG*);
  constexpr int kNameInformation = 3;
  struct {
    ULONG bytes;
    wchar_t name[1000];
  } info = {};
  const auto query = LateBind<NtQueryKey>("ntdll.dll", "NtQueryKey");
  HKEY key = nullptr;
  if (!HasWideCalls() || !query ||
      RegOpenKeyA(HKEY_CURRENT_USER, path.c_str(), &key) != ERROR_SUCCESS) {
    return {};
  }
  ULONG size = 0;
  const LONG status = query(key, kNameInformation, &info, sizeof info, &size);
  RegCloseKey(key);
  return status == 0 ? std::wstring(info.name, info.bytes / sizeof(wchar_t)) : std::wstring();
}

class RealContractMachine : public ContractMachine {
 public:
  RealContractMachine() {
    CleanUp();
    CreateDirectoryW(Native(kFolder).c_str(), nullptr);
    HKEY key = nullptr;
    RegCreateKeyA(HKEY_CURRENT_USER, kKey, &key);
    RegCloseKey(key);
    registry_.QueryValue(RootKey::LocalMachine, kSessionManager, kMoves, &moves_before_);
  }
  ~RealContractMachine() override {
    CleanUp();
    if (DeletedAtReboot().empty()) return;
    if (moves_before_.data.empty()) {
      registry_.DeleteValue(RootKey::LocalMachine, kSessionManager, kMoves);
    } else {
      registry_.SetValue(RootKey::LocalMachine, kSessionManager, kMoves, moves_before_);
    }
  }

  Files& files() override { return files_; }
  Registry& registry() override { return registry_; }
  Profiles& profiles() override { return profiles_; }
  Clock& clock() override { return clock_; }
  Shell& shell() override { return shell_; }
  CodePages& code_pages() override { return code_pages_; }
  System& system() override { return system_port_; }
  Processes& processes() override { return processes_; }
  Versions& versions() override { return versions_; }
  Pump& pump() override { return pump_; }
  std::string folder() override { return kFolder; }
  std::string key() override { return kKey; }
  bool holds_any_name() override { return !Is9xSide(); }
  void MakeFolder(const std::string& path) override {
    CreateDirectoryW(Native(path).c_str(), nullptr);
  }
  void MakeFile(const std::string& path, const std::string& content) override {
    const HANDLE file = CreateFileW(Native(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
    CloseHandle(file);
  }
  void SetAttributes(const std::string& path, std::uint32_t attributes) override {
    SetFileAttributesW(Native(path).c_str(), attributes ? attributes : FILE_ATTRIBUTE_NORMAL);
  }
  bool MakeOddValues(const std::string& name, const std::string& data) override {
    struct CountedText {
      USHORT length, room;
      const wchar_t* text;
    };
    using SetValueKey = LONG(WINAPI*)(HANDLE, const CountedText*, ULONG, ULONG, const void*, ULONG);
    const auto set = reinterpret_cast<SetValueKey>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtSetValueKey")));
    HKEY key = nullptr;
    if (!set || RegOpenKeyA(HKEY_CURRENT_USER, kKey, &key) != ERROR_SUCCESS) return false;
    const std::wstring text(data.begin(), data.end());
    bool made = true;
    for (const std::wstring& each :
         {std::wstring(L"\xF8FF"), std::wstring(name.begin(), name.end())}) {
      const auto size = static_cast<USHORT>(each.size() * sizeof(wchar_t));
      const CountedText counted = {size, size, each.data()};
      made &= set(key, &counted, 0, REG_SZ, text.data(), static_cast<ULONG>(2 * text.size())) == 0;
    }
    RegCloseKey(key);
    return made;
  }
  bool MakeSecondName(const std::string& name, const std::string& path) override {
    using Link = BOOL(WINAPI*)(const wchar_t*, const wchar_t*, void*);
    const auto link = LateBind<Link>("kernel32.dll", "CreateHardLinkW");
    return !Is9xSide() && link && link(Native(name).c_str(), Native(path).c_str(), nullptr);
  }
  bool MakeKeyLink(const std::string& path, const std::string& target) override {
    const std::wstring native = NativeName(target);
    HKEY link = nullptr;
    if (native.empty() ||
        RegCreateKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, REG_OPTION_CREATE_LINK,
                        KEY_WRITE | KEY_CREATE_LINK, nullptr, &link, nullptr) != ERROR_SUCCESS) {
      return false;
    }
    const LONG set = RegSetValueExW(link, L"SymbolicLinkValue", 0, REG_LINK,
                                    reinterpret_cast<const BYTE*>(native.data()),
                                    static_cast<DWORD>(native.size() * sizeof(wchar_t)));
    RegCloseKey(link);
    return set == ERROR_SUCCESS;
  }
  void SetEnvironment(const std::string& name, const std::string& value) override {
    SetEnvironmentVariableW(Wide(name).c_str(), Wide(value).c_str());
  }
  std::string OwnPath() override {
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return FromWide(path);
  }
  // The system keeps pairs of a path and its target, which is empty for what is deleted.
  std::string DeletedAtReboot() override {
    RegValue list;
    registry_.QueryValue(RootKey::LocalMachine, kSessionManager, kMoves, &list);
    std::vector<std::string> texts;
    for (std::size_t at = 0; at < list.data.size(); at += texts.back().size() + 1) {
      texts.emplace_back(list.data.c_str() + at);
    }
    std::string paths;
    for (std::size_t i = 0; i + 1 < texts.size(); i += 2) {
      const std::string path = ReplaceAll(texts[i], "\\??\\", "");
      if (path.starts_with(kFolder) && texts[i + 1].empty()) paths += path + "\n";
    }
    return paths;
  }
  void Post(std::function<void()> call) override {
    pump_.translate = [call = std::move(call)](MSG*) {
      call();
      return true;
    };
    PostThreadMessageA(GetCurrentThreadId(), WM_USER, 0, 0);
  }

 private:
  void CleanUp() {
    DeleteTree(Native(kFolder));
    ErrorLog log(files_, clock_, code_pages_, "C:\\contract-errors.txt");
    KeyRemover(registry_, log, [] {}).DeleteKey(RootKey::CurrentUser, kKey);
  }

  const SystemCalls& system_ = Is9xSide() ? W9xSystemCalls() : NtSystemCalls();
  FilesWin files_{Is9xSide() ? W9xFileCalls() : NtFileCalls()};
  RegistryWin registry_{0, Is9xSide() ? W9xRegistryCalls() : NtRegistryCalls()};
  ProfilesWin profiles_{system_};
  ClockWin clock_{system_};
  ShellWin shell_{Is9xSide() ? W9xShellCalls() : NtShellCalls()};
  CodePagesWin code_pages_;
  SystemWin system_port_{system_};
  ProcessesWin processes_;
  VersionsWin versions_{Is9xSide() ? W9xFileCalls() : NtFileCalls()};
  PumpWin pump_;
  RegValue moves_before_;
};

}  // namespace

std::unique_ptr<ContractMachine> NewContractMachine() {
  return std::make_unique<RealContractMachine>();
}

}  // namespace scourwell::test
