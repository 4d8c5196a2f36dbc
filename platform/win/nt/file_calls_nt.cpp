// SPDX-License-Identifier: MIT
#include "platform/security_descriptor.h"
#include "platform/win/file_calls.h"
#include "platform/win/find_data.h"
#include "platform/win/late_bind.h"
#include "platform/win/native_text.h"
#include "platform/win/nt/descriptor_check.h"
#include "platform/win/nt/native_path.h"
#include "platform/win/nt/opened_item_nt.h"
#include "platform/win/version_block.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

DirEntry ToEntry(const WIN32_FIND_DATAW& data) {
  DirEntry entry = WithoutNames(data);
  entry.name = FromWide(data.cFileName);
  entry.short_name = FromWide(data.cAlternateFileName);
  return entry;
}

// Calls with the native path and under true names; `failed` where there is no such path.
template <class Result, class Call>
Result With(const std::string& path, Result failed, Call&& call) {
  const std::optional<std::wstring> native = NativePath(path);
  if (!native) {
    SetLastError(ERROR_PATH_NOT_FOUND);
    return failed;
  }
  const TrueNames true_names;
  return call(native->c_str());
}

class NtCalls : public FileCalls {
 public:
  DWORD Find(const std::string& pattern, const Visit& visit) const override {
    WIN32_FIND_DATAW data;
    const FindHandle find(With(pattern, INVALID_HANDLE_VALUE, [&](const wchar_t* native) {
      return FindFirstFileW(native, &data);
    }));
    if (!find) return GetLastError();
    const std::string_view name = FileNamePart(pattern);
    const bool one_name = name.find_first_of("*?") == name.npos;
    do {
      if (IsDots(data.cFileName)) continue;
      const DirEntry entry = ToEntry(data);
      // Some systems drop a dot at the end all the same.
      if (one_name && !EqualsNoCase(entry.name, name) && !EqualsNoCase(entry.short_name, name)) {
        return ERROR_FILE_NOT_FOUND;
      }
      if (!visit(entry)) return NO_ERROR;
    } while (FindNextFileW(find.get(), &data));
    return GetLastError();
  }

  FileHandle Open(const std::string& path, DWORD access, DWORD share, DWORD disposition,
                  DWORD flags) const override {
    return FileHandle(With(path, INVALID_HANDLE_VALUE, [&](const wchar_t* native) {
      return CreateFileW(native, access, share, nullptr, disposition, flags, nullptr);
    }));
  }

  DWORD Attributes(const std::string& path) const override {
    return With(path, kNoAttributes, GetFileAttributesW);
  }

  bool SetAttributes(const std::string& path, DWORD attributes) const override {
    return With(path, FALSE, [&](const wchar_t* native) {
             return SetFileAttributesW(native, attributes);
           }) != FALSE;
  }

  bool Delete(const std::string& path) const override {
    return With(path, FALSE, DeleteFileW) != FALSE;
  }

  bool CreateFolder(const std::string& path) const override {
    return With(path, FALSE,
                [](const wchar_t* native) { return CreateDirectoryW(native, nullptr); }) != FALSE;
  }

  bool RemoveFolder(const std::string& path) const override {
    return With(path, FALSE, RemoveDirectoryW) != FALSE;
  }

  bool Move(const std::string& from, const std::string& to) const override {
    return Rename(from, to, 0);
  }

  // The new file lets in whom the old one let in.
  bool SwapIn(const std::string& fresh, const std::string& path) const override {
    const std::string access = ReadSecurity(path, DACL_SECURITY_INFORMATION);
    if (!access.empty()) WriteSecurity(fresh, access, DACL_SECURITY_INFORMATION);
    return Rename(fresh, path, MOVEFILE_REPLACE_EXISTING);
  }

  bool HasStreams(const std::string& path) const override { return HasStreamsNt(*this, path); }

  std::string Security(const std::string& path) const override {
    return ReadSecurity(path, kWhoAndWhat);
  }

  // Not everybody may give a file to somebody else.
  bool SetSecurity(const std::string& path, const std::string& descriptor) const override {
    return IsDescriptor(descriptor) && (WriteSecurity(path, descriptor, kWhoAndWhat) ||
                                        WriteSecurity(path, descriptor, DACL_SECURITY_INFORMATION));
  }

  bool BringBack(const std::string&) const override { return false; }
  void DropAside(const std::string&) const override {}

  std::string ShortPath(const std::string& path) const override {
    return With(path, std::string(), [](const wchar_t* native) {
      const DWORD needed = GetShortPathNameW(native, nullptr, 0);
      std::wstring short_path(needed, L'\0');
      const DWORD size = needed ? GetShortPathNameW(native, short_path.data(), needed) : 0;
      if (size == 0 || size >= needed) return std::string();
      short_path.resize(size);
      return WithoutNativePrefix(FromWide(short_path));
    });
  }

  bool VersionBlock(const std::string& path, std::string* block) const override {
    static const VersionReader<wchar_t> reader("GetFileVersionInfoSizeW", "GetFileVersionInfoW");
    return With(path, false,
                [&](const wchar_t* native) { return reader.ReadBlock(native, block); });
  }

  bool KnowsLinks() const override { return true; }

  Outcome OpenItem(const std::string& path, std::unique_ptr<OpenedItem>* item) const override {
    return OpenItemNt(*this, path, item);
  }

  Outcome Identify(const std::string& path, FileId* id) const override {
    return IdentifyNt(*this, path, id);
  }

  bool CreateGuardedFolder(const std::string& path) const override {
    std::string descriptor = ClosedDescriptor();
    SECURITY_ATTRIBUTES security = {sizeof security, descriptor.data(), FALSE};
    return With(path, FALSE, [&](const wchar_t* native) {
             return CreateDirectoryW(native, &security);
           }) != FALSE;
  }

  bool IsGuarded(const std::string& folder) const override {
    constexpr DWORD kHasLinks = 0x80;
    DWORD longest = 0;
    DWORD flags = 0;
    const std::string root = folder.substr(0, RootSize(folder));
    if (!GetVolumeInformationW(Wide(root).c_str(), nullptr, 0, nullptr, &longest, &flags, nullptr,
                               0)) {
      return false;
    }
    if ((flags & kHasLinks) == 0) return true;
    using GetSecurity = BOOL(WINAPI*)(LPCWSTR, DWORD, void*, DWORD, DWORD*);
    const auto get = LateBind<GetSecurity>("advapi32.dll", "GetFileSecurityW");
    if (!get) return false;
    constexpr DWORD kOwnerAndRights = 0x1 | 0x4;
    std::string descriptor(1 << 16, '\0');  // the size of the largest list
    DWORD needed = 0;
    return With(folder, FALSE,
                [&](const wchar_t* native) {
                  return get(native, kOwnerAndRights, descriptor.data(),
                             static_cast<DWORD>(descriptor.size()), &needed);
                }) != FALSE &&
           IsClosedToUsers(descriptor);
  }

  UINT DriveType(const std::string& root) const override {
    return GetDriveTypeW(Wide(root).c_str());
  }

  bool IsReady(const std::string& root) const override {
    DWORD longest = 0;
    DWORD flags = 0;
    return GetVolumeInformationW(Wide(root).c_str(), nullptr, 0, nullptr, &longest, &flags, nullptr,
                                 0) != FALSE;
  }

 private:
  static constexpr SECURITY_INFORMATION kWhoAndWhat =
      OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION;

  static std::string ReadSecurity(const std::string& path, SECURITY_INFORMATION parts) {
    using Get =
        BOOL(WINAPI*)(const wchar_t*, SECURITY_INFORMATION, PSECURITY_DESCRIPTOR, DWORD, DWORD*);
    static const auto get = LateBind<Get>("advapi32.dll", "GetFileSecurityW");
    std::string bytes;
    if (!get) return bytes;
    return With(path, bytes, [&](const wchar_t* native) {
      DWORD needed = 0;
      get(native, parts, nullptr, 0, &needed);
      bytes.resize(needed);
      const bool read = needed > 0 && get(native, parts, bytes.data(), needed, &needed);
      return read ? bytes : std::string();
    });
  }

  static bool WriteSecurity(const std::string& path, std::string descriptor,
                            SECURITY_INFORMATION parts) {
    using Set = BOOL(WINAPI*)(const wchar_t*, SECURITY_INFORMATION, PSECURITY_DESCRIPTOR);
    static const auto set = LateBind<Set>("advapi32.dll", "SetFileSecurityW");
    return set && With(path, FALSE, [&](const wchar_t* native) {
                    return set(native, parts, descriptor.data());
                  }) != FALSE;
  }

  static bool Rename(const std::string& from, const std::string& to, DWORD flags) {
    const std::optional<std::wstring> target = NativePath(to);
    if (!target) {
      SetLastError(ERROR_PATH_NOT_FOUND);
      return false;
    }
    // Virus scanners and the shell open a new file for a moment, to look at it.
    for (const DWORD pause : {20, 60, 120, 0}) {
      const BOOL moved = With(from, FALSE, [&](const wchar_t* native) {
        return MoveFileExW(native, target->c_str(), flags);
      });
      if (moved) return true;
      const DWORD error = GetLastError();
      const bool held = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
      if (pause == 0 || !held) break;
      Sleep(pause);
    }
    return false;
  }
};

}  // namespace

const FileCalls& NtFileCalls() {
  static const NtCalls calls;
  return calls;
}

}  // namespace scourwell
