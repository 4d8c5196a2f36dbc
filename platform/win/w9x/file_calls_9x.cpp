// SPDX-License-Identifier: MIT
#include "platform/win/file_calls.h"
#include "platform/win/find_data.h"
#include "platform/win/native_text.h"
#include "platform/win/version_block.h"
#include "platform/win/w9x/opened_item_9x.h"
#include "platform/win/w9x/reachable_path.h"
#include "platform/win/win_error.h"
#include "text/paths.h"

namespace scourwell {
namespace {

// Where the old file is between the moves of a swap: after a crash the name tells where it belongs.
std::string AsideOf(const std::string& path) { return path + ".~scw"; }

template <class Result, class Call>
Result With(const std::string& path, Result failed, Call&& call) {
  const std::optional<std::string> reachable = ReachablePath(path);
  if (!reachable) {
    SetLastError(ERROR_PATH_NOT_FOUND);
    return failed;
  }
  return call(reachable->c_str());
}

// The system writes "_" or a similar letter for what the code page lacks.
bool MayStandForOthers(std::string_view name) {
  for (const char c : name) {
    if (c == '_' || static_cast<unsigned char>(c) >= 0x80) return true;
  }
  return false;
}

// True when the name leads to the entry that it came with.
bool LeadsBack(const std::string& folder, const WIN32_FIND_DATAA& data) {
  WIN32_FIND_DATAA found;
  const FindHandle find(FindFirstFileA((folder + data.cFileName).c_str(), &found));
  return find && lstrcmpA(found.cAlternateFileName, data.cAlternateFileName) == 0;
}

// An entry whose name cannot be spelled, or would be read as another one, goes by its 8.3 name.
DirEntry ToEntry(const std::string& folder, const WIN32_FIND_DATAA& data) {
  DirEntry entry = WithoutNames(data);
  const std::string name = FromNarrow(data.cFileName);
  const bool has_short = data.cAlternateFileName[0] != 0;
  const bool spelled = IsPossibleName(name) && ReadsAsItStands(name) &&
                       (!has_short || !MayStandForOthers(name) || LeadsBack(folder, data));
  const std::string short_name = FromNarrow(data.cAlternateFileName);
  entry.name = spelled || !has_short ? name : short_name;
  if (spelled) entry.short_name = short_name;
  return entry;
}

class W9xCalls : public FileCalls {
 public:
  DWORD Find(const std::string& pattern, const Visit& visit) const override {
    const std::optional<std::string> reachable = ReachablePath(pattern);
    if (!reachable) return ERROR_PATH_NOT_FOUND;
    const std::string folder = FolderOf(*reachable);
    WIN32_FIND_DATAA data = {};  // the ANSI call of one system leaves the tag of a link as it was
    const FindHandle find(FindFirstFileA(reachable->c_str(), &data));
    if (!find) return GetLastError();
    do {
      // The two entries that every folder below a root begins with have no 8.3 names.
      if (IsDots(data.cFileName) && data.cAlternateFileName[0] == 0) continue;
      if (!visit(ToEntry(folder, data))) return NO_ERROR;
    } while (FindNextFileA(find.get(), &data));
    return GetLastError();
  }

  FileHandle Open(const std::string& path, DWORD access, DWORD share, DWORD disposition,
                  DWORD flags) const override {
    return FileHandle(With(path, INVALID_HANDLE_VALUE, [&](const char* reachable) {
      return CreateFileA(reachable, access, share, nullptr, disposition, flags, nullptr);
    }));
  }

  DWORD Attributes(const std::string& path) const override {
    return With(path, kNoAttributes, GetFileAttributesA);
  }

  bool SetAttributes(const std::string& path, DWORD attributes) const override {
    return With(path, FALSE, [&](const char* reachable) {
             return SetFileAttributesA(reachable, attributes);
           }) != FALSE;
  }

  bool Delete(const std::string& path) const override {
    return With(path, FALSE, DeleteFileA) != FALSE;
  }

  bool CreateFolder(const std::string& path) const override {
    return With(path, FALSE, [](const char* reachable) {
             return CreateDirectoryA(reachable, nullptr);
           }) != FALSE;
  }

  bool RemoveFolder(const std::string& path) const override {
    return With(path, FALSE, RemoveDirectoryA) != FALSE;
  }

  bool Move(const std::string& from, const std::string& to) const override {
    const std::optional<std::string> target = ReachablePath(to);
    if (!target) {
      SetLastError(ERROR_PATH_NOT_FOUND);
      return false;
    }
    return With(from, FALSE, [&](const char* reachable) {
             return MoveFileA(reachable, target->c_str());
           }) != FALSE;
  }

  // There is no way to replace a file in one step.
  bool SwapIn(const std::string& fresh, const std::string& path) const override {
    const DWORD attributes = Attributes(path);
    if (attributes == kNoAttributes) return Move(fresh, path);
    if (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) {
      SetLastError(ERROR_ACCESS_DENIED);
      return false;
    }
    DropAside(path);
    const std::string aside = AsideOf(path);
    if (!Move(path, aside)) return false;
    if (!Move(fresh, path)) {
      const DWORD failed = GetLastError();
      Move(aside, path);
      SetLastError(failed);
      return false;
    }
    DropAside(path);
    return true;
  }

  bool BringBack(const std::string& path) const override { return Move(AsideOf(path), path); }
  void DropAside(const std::string& path) const override { Delete(AsideOf(path)); }

  std::string ShortPath(const std::string& path) const override {
    return With(path, std::string(), [](const char* reachable) {
      char buffer[MAX_PATH];
      const DWORD size = GetShortPathNameA(reachable, buffer, sizeof buffer);
      return size == 0 || size >= sizeof buffer ? std::string()
                                                : FromNarrow(std::string_view(buffer, size));
    });
  }

  bool VersionBlock(const std::string& path, std::string* block) const override {
    static const VersionReader<char> reader("GetFileVersionInfoSizeA", "GetFileVersionInfoA");
    return With(path, false,
                [&](const char* reachable) { return reader.ReadBlock(reachable, block); });
  }

  bool KnowsLinks() const override { return false; }

  Outcome OpenItem(const std::string& path, std::unique_ptr<OpenedItem>* item) const override {
    return OpenItem9x(*this, path, item);
  }

  // Folders cannot be opened, so that there is no number for every item.
  Outcome Identify(const std::string& path, FileId* id) const override {
    if (Attributes(path) == kNoAttributes) {
      Outcome failed = FailedWith(GetLastError());
      return failed.code() == kPathNotFound ? Outcome::Failed(kFileNotFound) : std::move(failed);
    }
    DWORD serial = 0;
    DWORD longest = 0;
    DWORD flags = 0;
    const std::string root = path.substr(0, RootSize(path));
    const bool known = GetVolumeInformationA(root.c_str(), nullptr, 0, &serial, &longest, &flags,
                                             nullptr, 0) != FALSE;
    *id = {known ? serial : 0, 0};
    return {};
  }

  // These systems know no rights.
  bool CreateGuardedFolder(const std::string&) const override {
    SetLastError(ERROR_CALL_NOT_IMPLEMENTED);
    return false;
  }
  bool IsGuarded(const std::string&) const override { return true; }

  UINT DriveType(const std::string& root) const override { return GetDriveTypeA(root.c_str()); }

  bool IsReady(const std::string& root) const override {
    DWORD longest = 0;
    DWORD flags = 0;
    return GetVolumeInformationA(root.c_str(), nullptr, 0, nullptr, &longest, &flags, nullptr, 0) !=
           FALSE;
  }

 private:
  // With its backslash. In two-byte code pages a byte that looks like one may be half a character,
  // so the path is cut as a text.
  static std::string FolderOf(const std::string& reachable) {
    return Narrow(FolderPart(FromNarrow(reachable))) + "\\";
  }
};

}  // namespace

const FileCalls& W9xFileCalls() {
  static const W9xCalls calls;
  return calls;
}

}  // namespace scourwell
