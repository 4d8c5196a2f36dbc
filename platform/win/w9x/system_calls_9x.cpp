// SPDX-License-Identifier: MIT
#include "platform/win/system_calls.h"

#include "platform/win/folder_location.h"
#include "platform/win/late_bind.h"
#include "platform/win/native_text.h"
#include "platform/win/version_record.h"

namespace scourwell {
namespace {

constexpr DWORD kLongestProfileValue = 2000;

template <class Read>
std::string ReadText(Read&& read) {
  return FromNarrow(ReadWithRoom<char>(read));
}

std::string ThroughFolderPath(int folder_id) {
  using GetFolderPath = HRESULT(WINAPI*)(HWND, int, HANDLE, DWORD, LPSTR);
  // Shell version 5 has it itself; before, it comes with a library of its own.
  auto get = LateBind<GetFolderPath>("shell32.dll", "SHGetFolderPathA");
  if (!get) get = LateBind<GetFolderPath>("shfolder.dll", "SHGetFolderPathA");
  char path[MAX_PATH] = "";
  if (!get || get(nullptr, folder_id, nullptr, 0, path) != S_OK) return {};
  return FromNarrow(path);
}

std::string ThroughFolderLocation(int folder_id) {
  char path[MAX_PATH] = "";
  const bool found = WithFolderLocation(
      folder_id, [&](LPITEMIDLIST list) { return SHGetPathFromIDListA(list, path); });
  return found ? FromNarrow(path) : std::string();
}

class W9xCalls : public SystemCalls {
 public:
  bool QueryVersion(unsigned record_size, VersionRecord* record) const override {
    return ReadVersion<OSVERSIONINFOA>(GetVersionExA, record_size, FromNarrow, record);
  }

  std::string WindowsFolder() const override {
    return ReadText([](char* text, DWORD room) { return GetWindowsDirectoryA(text, room); });
  }

  std::string SystemFolder() const override {
    return ReadText([](char* text, DWORD room) { return GetSystemDirectoryA(text, room); });
  }

  std::string TemporaryFolder() const override {
    return ReadText([](char* text, DWORD room) { return GetTempPathA(room, text); });
  }

  std::string ShellFolder(int folder_id) const override {
    const std::string path = ThroughFolderPath(folder_id);
    return path.empty() ? ThroughFolderLocation(folder_id) : path;
  }

  std::string OwnPath() const override {
    char path[MAX_PATH] = "";
    const DWORD size = GetModuleFileNameA(nullptr, path, sizeof path);
    return FromNarrow({path, size});
  }

  std::string FullPath(const std::string& path) const override {
    const std::string narrow = Narrow(path);
    return ReadText([&](char* text, DWORD room) {
      return GetFullPathNameA(narrow.c_str(), room, text, nullptr);
    });
  }

  void EnterSystemFolder() const override { SetCurrentDirectoryA(Narrow(SystemFolder()).c_str()); }

  std::string Environment(const std::string& name) const override {
    const std::string narrow = Narrow(name);
    return ReadText([&](char* text, DWORD room) {
      return GetEnvironmentVariableA(narrow.c_str(), text, room);
    });
  }

  std::string MessageOf(DWORD code) const override {
    char text[512];
    const DWORD size = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                      nullptr, code, 0, text, sizeof text, nullptr);
    return FromNarrow({text, size});
  }

  HANDLE OpenToEnd(DWORD process_id) const override {
    return OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, process_id);
  }

  // These systems only export the call.
  bool DeleteAtReboot(const std::string&) const override {
    SetLastError(ERROR_CALL_NOT_IMPLEMENTED);
    return false;
  }

  HMODULE Loaded(const char* library) const override { return GetModuleHandleA(library); }

  HMODULE Load(const std::string& library) const override {
    const std::optional<std::string> path = ExactNarrow(library);
    return path ? LoadLibraryA(path->c_str()) : nullptr;
  }

  HANDLE Mutex(const char* name) const override { return CreateMutexA(nullptr, FALSE, name); }

  std::string ShortDate(const SYSTEMTIME& time) const override {
    char text[100] = "";
    GetDateFormatA(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, text, sizeof text);
    return FromNarrow(text);
  }

  std::string TimeOfDay(const SYSTEMTIME& time) const override {
    char text[100] = "";
    GetTimeFormatA(LOCALE_USER_DEFAULT, 0, &time, nullptr, text, sizeof text);
    return FromNarrow(text);
  }

  std::string ReadProfile(const std::string& section, const std::string& key,
                          const std::string& file) const override {
    const std::optional<std::string> path = ExactNarrow(file);
    if (!path) return {};
    char value[kLongestProfileValue];
    const DWORD size = GetPrivateProfileStringA(Narrow(section).c_str(), Narrow(key).c_str(), "",
                                                value, sizeof value, path->c_str());
    return FromNarrow({value, size});
  }

  bool WriteProfile(const std::string& section, const std::string& key,
                    const std::optional<std::string>& value,
                    const std::string& file) const override {
    const std::optional<std::string> path = ExactNarrow(file);
    const std::optional<std::string> narrow = ExactNarrow(value.value_or(""));
    if (!path || !narrow) {
      SetLastError(ERROR_INVALID_NAME);
      return false;
    }
    return WritePrivateProfileStringA(Narrow(section).c_str(), Narrow(key).c_str(),
                                      value ? narrow->c_str() : nullptr, path->c_str()) != FALSE;
  }
};

}  // namespace

const SystemCalls& W9xSystemCalls() {
  static const W9xCalls calls;
  return calls;
}

}  // namespace scourwell
