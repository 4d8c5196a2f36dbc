#include "platform/win/files_win.h"

#include <windows.h>

#include <algorithm>

#include "platform/file_utils.h"
#include "platform/win/file_streams_win.h"
#include "platform/win/unique_handle.h"
#include "platform/win/win_error.h"

namespace scourwell {
namespace {

static_assert(kLongestPath == MAX_PATH - 1);
constexpr DWORD kNoAttributes =
    0xFFFFFFFF;  // the headers' own name is newer than the oldest target

FileTime ToFileTime(const FILETIME& time) {
  return static_cast<FileTime>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

DirEntry ToEntry(const WIN32_FIND_DATAA& data) {
  DirEntry entry;
  entry.name = data.cFileName;
  entry.short_name = data.cAlternateFileName;
  entry.attributes = data.dwFileAttributes;
  if (!entry.IsFolder()) {
    entry.size = static_cast<std::uint64_t>(data.nFileSizeHigh) << 32 | data.nFileSizeLow;
  }
  entry.modified = ToFileTime(data.ftLastWriteTime);
  entry.accessed = ToFileTime(data.ftLastAccessTime);
  entry.created = ToFileTime(data.ftCreationTime);
  return entry;
}

bool IsDots(const char* name) {
  return name[0] == '.' && (name[1] == 0 || (name[1] == '.' && name[2] == 0));
}

// Why a listing found nothing: an existing folder without a match is no failure.
Outcome WhyNothing(DWORD code, const std::string& pattern) {
  if (code == ERROR_NO_MORE_FILES) return {};
  if (code != ERROR_FILE_NOT_FOUND) {
    Outcome failed = FailedWith(code);
    return failed.number() == kBadFileName ? Outcome::Failed(kPathNotFound) : std::move(failed);
  }
  const std::string folder(FolderPart(pattern));
  const DWORD attributes = GetFileAttributesA((folder + "\\").c_str());
  if (attributes != kNoAttributes && (attributes & FILE_ATTRIBUTE_DIRECTORY)) return {};
  return Outcome::Failed(kPathNotFound);
}

FileHandle OpenToRead(const std::string& path) {
  return FileHandle(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
}

// As many bytes as there are, up to `size`.
Outcome ReadUpTo(HANDLE file, char* bytes, std::size_t size, std::size_t* filled) {
  *filled = 0;
  while (*filled < size) {
    DWORD portion = 0;
    if (!ReadFile(file, bytes + *filled, static_cast<DWORD>(size - *filled), &portion, nullptr)) {
      return FailedWith(GetLastError());
    }
    if (portion == 0) break;
    *filled += portion;
  }
  return {};
}

Outcome WriteAll(HANDLE file, std::string_view text) {
  while (!text.empty()) {
    const DWORD portion = static_cast<DWORD>(std::min<std::size_t>(text.size(), 1 << 20));
    DWORD written = 0;
    if (!WriteFile(file, text.data(), portion, &written, nullptr)) {
      return FailedWith(GetLastError());
    }
    if (written == 0) return Outcome::Failed(kDiskFull);
    text.remove_prefix(written);
  }
  return {};
}

DriveKind ToKind(UINT type) {
  switch (type) {
    case DRIVE_NO_ROOT_DIR:
      return DriveKind::NoRoot;
    case DRIVE_REMOVABLE:
      return DriveKind::Removable;
    case DRIVE_FIXED:
      return DriveKind::Fixed;
    case DRIVE_REMOTE:
      return DriveKind::Network;
    case DRIVE_CDROM:
      return DriveKind::Optical;
    case DRIVE_RAMDISK:
      return DriveKind::RamDisk;
    default:
      return DriveKind::Unknown;
  }
}

}  // namespace

FilesWin::FilesWin() { SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX); }

Outcome FilesWin::List(const std::string& pattern, const Visit& visit) {
  if (pattern.size() > kLongestPath) return Outcome::Failed(kPathNotFound);
  WIN32_FIND_DATAA data;
  FindHandle find(FindFirstFileA(pattern.c_str(), &data));
  if (!find) return WhyNothing(GetLastError(), pattern);
  do {
    if (IsDots(data.cFileName)) continue;
    if (!visit(ToEntry(data))) return {};
  } while (FindNextFileA(find.get(), &data));
  const DWORD code = GetLastError();
  return code == ERROR_NO_MORE_FILES ? Outcome() : FailedWith(code);
}

Outcome FilesWin::Stat(const std::string& path, DirEntry* entry) {
  if (path.empty() || path.size() > kLongestPath) return Outcome::Failed(kPathNotFound);
  if (path.find_first_of("*?") != std::string::npos) return Outcome::Failed(kFileNotFound);
  if (IsRootPath(path)) {  // a root has no entry of its own
    const DWORD attributes = GetFileAttributesA(path.c_str());
    if (attributes == kNoAttributes) return FailedWith(GetLastError());
    *entry = DirEntry();
    entry->name = path;
    entry->attributes = attributes;
    return {};
  }
  WIN32_FIND_DATAA data;
  FindHandle find(FindFirstFileA(path.c_str(), &data));
  if (!find) {
    const DWORD code = GetLastError();
    if (code == ERROR_FILE_NOT_FOUND && BringBack(path)) return Stat(path, entry);
    // A server that does not answer tells nothing of its files.
    if (code == ERROR_BAD_NETPATH || code == ERROR_BAD_NET_NAME) {
      return Outcome::Failed(kDiskNotReady);
    }
    Outcome failed = FailedWith(code);
    const bool absent = failed.number() == kPathNotFound || failed.number() == kBadFileName;
    return absent ? Outcome::Failed(kFileNotFound) : std::move(failed);
  }
  *entry = ToEntry(data);
  return {};
}

Outcome FilesWin::Read(const std::string& path, std::uint64_t limit, std::string* content) {
  BringBack(path);
  const FileHandle file = OpenToRead(path);
  if (!file) return FailedWith(GetLastError());
  DWORD high = 0;
  SetLastError(NO_ERROR);
  const DWORD low = GetFileSize(file.get(), &high);
  if (low == 0xFFFFFFFF && GetLastError() != NO_ERROR) return FailedWith(GetLastError());
  const std::uint64_t size = static_cast<std::uint64_t>(high) << 32 | low;
  if (size > limit || size > 0x7FFFFFFF) return Outcome::Failed(kOutOfMemory);
  std::string text(static_cast<std::size_t>(size), '\0');
  std::size_t filled = 0;
  if (Outcome read = ReadUpTo(file.get(), text.data(), text.size(), &filled); !read.ok()) {
    return read;
  }
  text.resize(filled);  // the file may have shrunk meanwhile
  *content = std::move(text);
  return {};
}

Outcome FilesWin::ReadBlocks(const std::string& path, const VisitBlock& visit) {
  const FileHandle file = OpenToRead(path);
  if (!file) return FailedWith(GetLastError());
  std::string block(kBlockSize, '\0');
  for (;;) {
    std::size_t filled = 0;
    Outcome read = ReadUpTo(file.get(), block.data(), block.size(), &filled);
    if (!read.ok() || filled == 0) return read;
    if (!visit(std::string_view(block).substr(0, filled)) || filled < block.size()) return {};
  }
}

Outcome FilesWin::Append(const std::string& path, std::string_view text) {
  BringBack(path);
  FileHandle file(CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) return FailedWith(GetLastError());
  LONG high = 0;
  SetLastError(NO_ERROR);
  if (SetFilePointer(file.get(), 0, &high, FILE_END) == 0xFFFFFFFF && GetLastError() != NO_ERROR) {
    return FailedWith(GetLastError());
  }
  return WriteAll(file.get(), text);
}

Outcome FilesWin::Replace(const std::string& path, std::string_view text) {
  std::unique_ptr<FileWriter> writer;
  Outcome written = OpenWriterWin(path, &writer);
  if (written.ok()) written = writer->Write(text);
  if (written.ok()) written = writer->Commit();
  return written;
}

Outcome FilesWin::EraseFile(const std::string& path) {
  if (!DeleteFileA(path.c_str())) return FailedWith(GetLastError());
  DropAside(path);
  return {};
}

Outcome FilesWin::OpenReader(const std::string& path, std::unique_ptr<FileReader>* reader) {
  return OpenReaderWin(path, reader);
}

Outcome FilesWin::OpenWriter(const std::string& path, std::unique_ptr<FileWriter>* writer) {
  return OpenWriterWin(path, writer);
}

Outcome FilesWin::CreateFolder(const std::string& path) {
  return CreateDirectoryA(path.c_str(), nullptr) ? Outcome() : FailedWith(GetLastError());
}

Outcome FilesWin::RemoveFolder(const std::string& path) {
  return RemoveDirectoryA(path.c_str()) ? Outcome() : FailedWith(GetLastError());
}

Outcome FilesWin::Move(const std::string& from, const std::string& to) {
  return MoveFileA(from.c_str(), to.c_str()) ? Outcome() : FailedWith(GetLastError());
}

Outcome FilesWin::SetAttributes(const std::string& path, std::uint32_t attributes) {
  attributes &= kReadOnly | kHidden | kSystem | kArchive;
  const DWORD bits = attributes ? attributes : FILE_ATTRIBUTE_NORMAL;
  return SetFileAttributesA(path.c_str(), bits) ? Outcome() : FailedWith(GetLastError());
}

Outcome FilesWin::SetTimes(const std::string& path, const FileTimes& times) {
  constexpr DWORD kWriteAttributes = 0x100;  // enough, also for read-only files, on the NT family
  FileHandle file;
  for (const DWORD access : {kWriteAttributes, DWORD{GENERIC_WRITE}}) {
    file = FileHandle(CreateFileA(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (file) break;
  }
  if (!file) return FailedWith(GetLastError());
  const FileTime wanted[] = {times.created, times.accessed, times.modified};
  FILETIME set[3];
  for (int i = 0; i < 3; ++i) {
    set[i] = {static_cast<DWORD>(wanted[i]), static_cast<DWORD>(wanted[i] >> 32)};
  }
  const auto pointer = [&](int i) { return wanted[i] ? &set[i] : nullptr; };
  return SetFileTime(file.get(), pointer(0), pointer(1), pointer(2)) ? Outcome()
                                                                     : FailedWith(GetLastError());
}

Outcome FilesWin::HoldFolder(const std::string& path, std::unique_ptr<FolderHold>* hold) {
  return HoldFolderWin(path, hold);
}

std::string FilesWin::ShortPath(const std::string& path) {
  char buffer[MAX_PATH];
  const DWORD size = GetShortPathNameA(path.c_str(), buffer, sizeof buffer);
  return size == 0 || size >= sizeof buffer ? std::string() : std::string(buffer, size);
}

std::vector<Drive> FilesWin::Drives() {
  std::vector<Drive> drives;
  const DWORD present = GetLogicalDrives();
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    if (!(present >> (letter - 'A') & 1)) continue;
    const char root[] = {letter, ':', '\\', 0};
    drives.push_back({letter, ToKind(GetDriveTypeA(root))});
  }
  return drives;
}

bool FilesWin::IsReady(const std::string& root) {
  DWORD longest = 0;
  DWORD flags = 0;
  return GetVolumeInformationA(root.c_str(), nullptr, 0, nullptr, &longest, &flags, nullptr, 0) !=
         0;
}

}  // namespace scourwell
