// The contract tests' machine made of the real adapters, in a folder and a key of its own.
#include <windows.h>

#include "platform/registry_access.h"
#include "platform/win/code_pages_win.h"
#include "platform/win/desktop_win.h"
#include "platform/win/files_win.h"
#include "platform/win/registry_win.h"
#include "tests/contract/contract.h"
#include "tests/helpers.h"

namespace scourwell::test {
namespace {

constexpr char kFolder[] = "C:\\contract";
constexpr char kKey[] = "Software\\ScourwellContract";

// Deletes a folder that the tests made, with everything in it.
void DeleteTree(const std::string& folder) {
  WIN32_FIND_DATAA data;
  const HANDLE find = FindFirstFileA((folder + "\\*").c_str(), &data);
  if (find == INVALID_HANDLE_VALUE) return;
  do {
    const std::string name = data.cFileName;
    if (name == "." || name == "..") continue;
    const std::string path = folder + "\\" + name;
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    if (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
      DeleteTree(path);
    } else {
      DeleteFileA(path.c_str());
    }
  } while (FindNextFileA(find, &data));
  FindClose(find);
  RemoveDirectoryA(folder.c_str());
}

class RealContractMachine : public ContractMachine {
 public:
  RealContractMachine() {
    CleanUp();
    CreateDirectoryA(kFolder, nullptr);
    HKEY key = nullptr;
    RegCreateKeyA(HKEY_CURRENT_USER, kKey, &key);
    RegCloseKey(key);
  }
  ~RealContractMachine() override { CleanUp(); }

  Files& files() override { return files_; }
  Registry& registry() override { return registry_; }
  Profiles& profiles() override { return profiles_; }
  Clock& clock() override { return clock_; }
  Shell& shell() override { return shell_; }
  CodePages& code_pages() override { return code_pages_; }
  std::string folder() override { return kFolder; }
  std::string key() override { return kKey; }
  void MakeFolder(const std::string& path) override { CreateDirectoryA(path.c_str(), nullptr); }
  void MakeFile(const std::string& path, const std::string& content) override {
    const HANDLE file = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
    CloseHandle(file);
  }
  void SetAttributes(const std::string& path, std::uint32_t attributes) override {
    SetFileAttributesA(path.c_str(), attributes ? attributes : FILE_ATTRIBUTE_NORMAL);
  }
  bool MakeOddValues(const std::string& name, const std::string& data) override {
    struct CountedText {
      USHORT length, room;
      const wchar_t* text;
    };
    using SetValueKey = LONG(WINAPI*)(HANDLE, const CountedText*, ULONG, ULONG, const void*, ULONG);
    const auto set = reinterpret_cast<SetValueKey>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtSetValueKey")));
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

 private:
  void CleanUp() {
    DeleteTree(kFolder);
    const NumberCaptions captions;
    ErrorLog log(files_, clock_, "C:\\contract-errors.txt");
    ShellWin shell;
    RegistryAccess(registry_, log, captions, shell).DeleteKey(RootKey::CurrentUser, kKey);
  }

  FilesWin files_;
  RegistryWin registry_;
  ProfilesWin profiles_;
  ClockWin clock_;
  ShellWin shell_;
  CodePagesWin code_pages_;
};

}  // namespace

std::unique_ptr<ContractMachine> NewContractMachine() {
  return std::make_unique<RealContractMachine>();
}

}  // namespace scourwell::test
