// SPDX-License-Identifier: MIT
#include "platform/win/system_calls.h"

#include "platform/win/folder_location.h"
#include "platform/win/late_bind.h"
#include "platform/win/native_text.h"
#include "platform/win/nt/debug_privilege.h"
#include "platform/win/nt/native_path.h"
#include "platform/win/version_record.h"
#include "text/paths.h"

namespace scourwell {
namespace {

constexpr DWORD kLongestProfileValue = 2000;

template <class Read>
std::string ReadText(Read&& read) {
  return FromWide(ReadWithRoom<wchar_t>(read));
}

// NT 4 has the call in a library that comes with newer shells, or not at all.
std::string ThroughFolderPath(int folder_id) {
  using GetFolderPath = HRESULT(WINAPI*)(HWND, int, HANDLE, DWORD, LPWSTR);
  auto get = LateBind<GetFolderPath>("shell32.dll", "SHGetFolderPathW");
  if (!get) get = LateBind<GetFolderPath>("shfolder.dll", "SHGetFolderPathW");
  wchar_t path[MAX_PATH] = L"";
  if (!get || get(nullptr, folder_id, nullptr, 0, path) != S_OK) return {};
  return FromWide(path);
}

std::string ThroughFolderLocation(int folder_id) {
  using PathFromIdList = BOOL(WINAPI*)(const void*, LPWSTR);
  const auto path_of = LateBind<PathFromIdList>("shell32.dll", "SHGetPathFromIDListW");
  wchar_t path[MAX_PATH] = L"";
  const bool found = path_of && WithFolderLocation(folder_id, [&](const void* list) {
                       return path_of(list, path);
                     });
  return found ? FromWide(path) : std::string();
}

class NtCalls : public SystemCalls {
 public:
  bool QueryVersion(unsigned record_size, VersionRecord* record) const override {
    return ReadVersion<OSVERSIONINFOW>(GetVersionExW, record_size, FromWide, record);
  }

  std::string WindowsFolder() const override {
    return ReadText([](wchar_t* text, DWORD room) { return GetWindowsDirectoryW(text, room); });
  }

  std::string SystemFolder() const override {
    return ReadText([](wchar_t* text, DWORD room) { return GetSystemDirectoryW(text, room); });
  }

  std::string Wow64Folder() const override {
    using GetFolder = UINT(WINAPI*)(LPWSTR, UINT);
    const auto get = LateBind<GetFolder>("kernel32.dll", "GetSystemWow64DirectoryW");
    if (!get) return {};
    return ReadText([&](wchar_t* text, DWORD room) { return get(text, room); });
  }

  std::string TemporaryFolder() const override {
    return ReadText([](wchar_t* text, DWORD room) { return GetTempPathW(room, text); });
  }

  std::string ShellFolder(int folder_id) const override {
    const std::string path = ThroughFolderPath(folder_id);
    return path.empty() ? ThroughFolderLocation(folder_id) : path;
  }

  // The call tells no length beyond the room that it got.
  std::string OwnPath() const override {
    for (DWORD room = MAX_PATH; room <= 32'768; room *= 2) {
      std::wstring path(room, L'\0');
      const DWORD size = GetModuleFileNameW(nullptr, path.data(), room);
      if (size < room) return FromWide({path.data(), size});
    }
    return {};
  }

  // The call cuts off dots and blanks, which would lead to another place.
  std::string FullPath(const std::string& path) const override {
    if (IsExactPath(path)) return path;
    const std::wstring wide = Wide(path);
    return ReadText([&](wchar_t* text, DWORD room) {
      return GetFullPathNameW(wide.c_str(), room, text, nullptr);
    });
  }

  // From XP on the current folder can be taken out of the search for libraries.
  void EnterSystemFolder() const override {
    SetCurrentDirectoryW(Wide(SystemFolder()).c_str());
    using SetFolder = BOOL(WINAPI*)(LPCWSTR);
    if (const auto set = LateBind<SetFolder>("kernel32.dll", "SetDllDirectoryW")) set(L"");
  }

  std::string Environment(const std::string& name) const override {
    const std::wstring wide = Wide(name);
    return ReadText([&](wchar_t* text, DWORD room) {
      return GetEnvironmentVariableW(wide.c_str(), text, room);
    });
  }

  std::string MessageOf(DWORD code) const override {
    wchar_t text[512];
    const DWORD size = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                      nullptr, code, 0, text, 512, nullptr);
    return FromWide({text, size});
  }

  // Services belong to the system and refuse everyone else.
  HANDLE OpenToEnd(DWORD process_id) const override {
    const DebugPrivilege privilege;
    return OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, process_id);
  }

  bool DeleteAtReboot(const std::string& path) const override {
    const std::optional<std::wstring> native = NativePath(path);
    if (!native) {
      SetLastError(ERROR_PATH_NOT_FOUND);
      return false;
    }
    const TrueNames true_names;
    return MoveFileExW(native->c_str(), nullptr,
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_DELAY_UNTIL_REBOOT) != FALSE;
  }

  HMODULE Loaded(const char* library) const override {
    return GetModuleHandleW(Wide(library).c_str());
  }

  HMODULE Load(const std::string& library) const override {
    return LoadLibraryW(Wide(library).c_str());
  }

  HANDLE Mutex(const char* name) const override {
    return CreateMutexW(nullptr, FALSE, Wide(name).c_str());
  }

  std::string ShortDate(const SYSTEMTIME& time) const override {
    wchar_t text[100] = L"";
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, text, 100);
    return FromWide(text);
  }

  std::string TimeOfDay(const SYSTEMTIME& time) const override {
    wchar_t text[100] = L"";
    GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, nullptr, text, 100);
    return FromWide(text);
  }

  std::string ReadProfile(const std::string& section, const std::string& key,
                          const std::string& file) const override {
    wchar_t value[kLongestProfileValue];
    const DWORD size = GetPrivateProfileStringW(Wide(section).c_str(), Wide(key).c_str(), L"",
                                                value, kLongestProfileValue, Wide(file).c_str());
    return FromWide({value, size});
  }

  bool WriteProfile(const std::string& section, const std::string& key,
                    const std::optional<std::string>& value,
                    const std::string& file) const override {
    return WritePrivateProfileStringW(Wide(section).c_str(), Wide(key).c_str(),
                                      value ? Wide(*value).c_str() : nullptr,
                                      Wide(file).c_str()) != FALSE;
  }
};

}  // namespace

const SystemCalls& NtSystemCalls() {
  static const NtCalls calls;
  return calls;
}

}  // namespace scourwell
