// SPDX-License-Identifier: MIT
#include "platform/win/files_win.h"

#include <windows.h>

#include <algorithm>

#include "platform/win/family.h"
#include "platform/win/file_streams_win.h"
#include "platform/win/unique_handle.h"
#include "platform/win/win_error.h"
#include "text/paths.h"

namespace scourwell {
namespace {

// Why a listing found nothing: an existing folder without a match is no failure.
Outcome WhyNothing(const FileCalls& calls, DWORD code, const std::string& pattern) {
  if (code == ERROR_NO_MORE_FILES || code == NO_ERROR) return {};
  if (code != ERROR_FILE_NOT_FOUND) {
    Outcome failed = FailedWith(code);
    return failed.code() == kBadFileName ? Outcome::Failed(kPathNotFound) : std::move(failed);
  }
  const DWORD attributes = calls.Attributes(std::string(FolderPart(pattern)) + "\\");
  if (attributes != kNoAttributes && (attributes & FILE_ATTRIBUTE_DIRECTORY)) return {};
  return Outcome::Failed(kPathNotFound);
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

// The header's own name is newer than the oldest target.
constexpr DWORD kOpenItself = 0x00200000;
constexpr DWORD kLinkAttribute = 0x400;

// A link, or a file with a second name: whoever may write into a folder can have either lead to a
// file that only an administrator may change.
bool StandsElsewhere(HANDLE file) {
  BY_HANDLE_FILE_INFORMATION facts = {};
  return !GetFileInformationByHandle(file, &facts) || facts.nNumberOfLinks > 1 ||
         (facts.dwFileAttributes & kLinkAttribute);
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

const FileCalls& SystemFileCalls() { return HasWideCalls() ? NtFileCalls() : W9xFileCalls(); }

FilesWin::FilesWin(const FileCalls& calls) : calls_(calls) {
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
}

Outcome FilesWin::List(const std::string& pattern, const Visit& visit) {
  return WhyNothing(calls_, calls_.Find(pattern, visit), pattern);
}

Outcome FilesWin::Stat(const std::string& path, DirEntry* entry) {
  if (path.empty()) return Outcome::Failed(kPathNotFound);
  if (path.find_first_of("*?") != std::string::npos) return Outcome::Failed(kFileNotFound);
  if (IsRootPath(path)) {  // a root has no entry of its own
    const DWORD attributes = calls_.Attributes(path);
    if (attributes == kNoAttributes) return FailedWith(GetLastError());
    *entry = DirEntry();
    entry->name = path;
    entry->attributes = attributes;
    return {};
  }
  const DWORD code = calls_.Find(path, [&](const DirEntry& found) {
    *entry = found;
    return false;
  });
  if (code == NO_ERROR) return {};
  if (code == ERROR_FILE_NOT_FOUND && calls_.BringBack(path)) return Stat(path, entry);
  // A server that does not answer tells nothing of its files.
  if (code == ERROR_BAD_NETPATH || code == ERROR_BAD_NET_NAME) {
    return Outcome::Failed(kDiskNotReady);
  }
  Outcome failed = FailedWith(code);
  const bool absent = failed.code() == kPathNotFound || failed.code() == kBadFileName;
  return absent ? Outcome::Failed(kFileNotFound) : std::move(failed);
}

FileHandle FilesWin::OpenToRead(const std::string& path) const {
  return calls_.Open(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING,
                     FILE_FLAG_SEQUENTIAL_SCAN);
}

Outcome FilesWin::Read(const std::string& path, std::uint64_t limit, std::string* content) {
  calls_.BringBack(path);
  const FileHandle file = OpenToRead(path);
  if (!file) return FailedWith(GetLastError());
  std::uint64_t size = 0;
  if (Outcome sized = SizeOf(file.get(), &size); !sized.ok()) return sized;
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
  calls_.BringBack(path);
  const DWORD itself = calls_.KnowsLinks() ? kOpenItself : 0;
  const FileHandle file = calls_.Open(path, GENERIC_WRITE, FILE_SHARE_READ, OPEN_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL | itself);
  if (!file) return FailedWith(GetLastError());
  if (itself && StandsElsewhere(file.get())) return FailedWith(ERROR_ACCESS_DENIED);
  LONG high = 0;
  SetLastError(NO_ERROR);
  if (SetFilePointer(file.get(), 0, &high, FILE_END) == 0xFFFFFFFF && GetLastError() != NO_ERROR) {
    return FailedWith(GetLastError());
  }
  return WriteAll(file.get(), text);
}

Outcome FilesWin::Replace(const std::string& path, std::string_view text) {
  std::unique_ptr<FileWriter> writer;
  Outcome written = OpenWriterWin(calls_, path, &writer);
  if (written.ok()) written = writer->Write(text);
  if (written.ok()) written = writer->Commit();
  return written;
}

Outcome FilesWin::EraseFile(const std::string& path) {
  if (!calls_.Delete(path)) return FailedWith(GetLastError());
  calls_.DropAside(path);
  return {};
}

Outcome FilesWin::OpenReader(const std::string& path, std::unique_ptr<FileReader>* reader) {
  return OpenReaderWin(calls_, path, reader);
}

Outcome FilesWin::OpenWriter(const std::string& path, std::unique_ptr<FileWriter>* writer) {
  return OpenWriterWin(calls_, path, writer);
}

Outcome FilesWin::CreateFolder(const std::string& path) {
  return calls_.CreateFolder(path) ? Outcome() : FailedWith(GetLastError());
}

Outcome FilesWin::RemoveFolder(const std::string& path) {
  return calls_.RemoveFolder(path) ? Outcome() : FailedWith(GetLastError());
}

Outcome FilesWin::Move(const std::string& from, const std::string& to) {
  return calls_.Move(from, to) ? Outcome() : FailedWith(GetLastError());
}

Outcome FilesWin::SetAttributes(const std::string& path, std::uint32_t attributes) {
  attributes &= kReadOnly | kHidden | kSystem | kArchive;
  const DWORD bits = attributes ? attributes : FILE_ATTRIBUTE_NORMAL;
  return calls_.SetAttributes(path, bits) ? Outcome() : FailedWith(GetLastError());
}

Outcome FilesWin::SetTimes(const std::string& path, const FileTimes& times) {
  constexpr DWORD kWriteAttributes = 0x100;  // enough, also for read-only files, on the NT family
  const FileTime wanted[] = {times.created, times.accessed, times.modified};
  FILETIME set[3];
  for (int i = 0; i < 3; ++i) {
    set[i] = {static_cast<DWORD>(wanted[i]), static_cast<DWORD>(wanted[i] >> 32)};
  }
  const auto pointer = [&](int i) { return wanted[i] ? &set[i] : nullptr; };
  // Windows 95, 98 and Me may open a file for the first right and then refuse the times.
  for (const DWORD access : {kWriteAttributes, DWORD{GENERIC_WRITE}}) {
    const FileHandle file = calls_.Open(path, access, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                        OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
    if (file && SetFileTime(file.get(), pointer(0), pointer(1), pointer(2))) return {};
  }
  const DWORD error = GetLastError();
  DirEntry there;
  if (!HasWideCalls() && Stat(path, &there).ok() && there.IsFolder()) return {};
  return FailedWith(error);
}

Outcome FilesWin::HoldFolder(const std::string& path, std::unique_ptr<FolderHold>* hold) {
  return HoldFolderWin(calls_, path, hold);
}

Outcome FilesWin::OpenItem(const std::string& path, std::unique_ptr<OpenedItem>* item) {
  return calls_.OpenItem(path, item);
}

Outcome FilesWin::Identify(const std::string& path, FileId* id) {
  return calls_.Identify(path, id);
}

Outcome FilesWin::CreateGuardedFolder(const std::string& path) {
  return calls_.CreateGuardedFolder(path) ? Outcome() : FailedWith(GetLastError());
}

bool FilesWin::IsGuarded(const std::string& folder) { return calls_.IsGuarded(folder); }

bool FilesWin::HasStreams(const std::string& path) { return calls_.HasStreams(path); }

std::string FilesWin::Security(const std::string& path) { return calls_.Security(path); }

Outcome FilesWin::SetSecurity(const std::string& path, const std::string& descriptor) {
  if (descriptor.empty() || calls_.SetSecurity(path, descriptor)) return {};
  return FailedWith(GetLastError());
}

std::string FilesWin::ShortPath(const std::string& path) { return calls_.ShortPath(path); }

std::vector<Drive> FilesWin::Drives() {
  std::vector<Drive> drives;
  const DWORD present = GetLogicalDrives();
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    if (!(present >> (letter - 'A') & 1)) continue;
    drives.push_back({letter, ToKind(calls_.DriveType({letter, ':', '\\'}))});
  }
  return drives;
}

bool FilesWin::IsReady(const std::string& root) { return calls_.IsReady(root); }

}  // namespace scourwell
