// SPDX-License-Identifier: MIT
#include "platform/win/file_streams_win.h"

#include <windows.h>

#include <algorithm>

#include "platform/files.h"
#include "platform/win/unique_handle.h"
#include "platform/win/win_error.h"
#include "text/caption_ids.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

// The headers' own name is newer than the oldest target.
constexpr DWORD kOpenLinkItself = 0x00200000;
constexpr unsigned kMostNames = 10000;

// Makes a file of a name that nothing in the folder has.
Outcome CreateBeside(const FileCalls& calls, const std::string& folder, FileHandle* file,
                     std::string* path) {
  for (unsigned number = 0; number < kMostNames; ++number) {
    *path = folder + "\\~scw" + Padded(number, 4) + ".tmp";
    *file = calls.Open(*path, GENERIC_WRITE, 0, CREATE_NEW, FILE_ATTRIBUTE_NORMAL);
    if (*file) return {};
    const DWORD code = GetLastError();
    if (code != ERROR_FILE_EXISTS && code != ERROR_ALREADY_EXISTS) return FailedWith(code);
  }
  return Outcome::Failed(kFileExists);
}

class ReaderWin : public FileReader {
 public:
  ReaderWin(FileHandle file, std::uint64_t size) : file_(std::move(file)), size_(size) {}

  std::uint64_t size() const override { return size_; }

  Outcome ReadAt(std::uint64_t offset, char* bytes, std::size_t count,
                 std::size_t* filled) override {
    *filled = 0;
    LONG high = static_cast<LONG>(offset >> 32);
    SetLastError(NO_ERROR);
    if (SetFilePointer(file_.get(), static_cast<LONG>(offset), &high, FILE_BEGIN) == 0xFFFFFFFF &&
        GetLastError() != NO_ERROR) {
      return FailedWith(GetLastError());
    }
    while (*filled < count) {
      DWORD portion = 0;
      if (!ReadFile(file_.get(), bytes + *filled, static_cast<DWORD>(count - *filled), &portion,
                    nullptr)) {
        return FailedWith(GetLastError());
      }
      if (portion == 0) break;
      *filled += portion;
    }
    return {};
  }

 private:
  FileHandle file_;
  std::uint64_t size_;
};

class WriterWin : public FileWriter {
 public:
  WriterWin(const FileCalls& calls, FileHandle file, std::string fresh, std::string path)
      : calls_(calls), file_(std::move(file)), fresh_(std::move(fresh)), path_(std::move(path)) {}
  ~WriterWin() override {
    file_.Reset(INVALID_HANDLE_VALUE);
    if (!fresh_.empty()) calls_.Delete(fresh_);
  }

  Outcome Write(std::string_view bytes) override { return WriteAll(file_.get(), bytes); }

  Outcome Commit() override {
    if (!FlushFileBuffers(file_.get())) return FailedWith(GetLastError());
    file_.Reset(INVALID_HANDLE_VALUE);
    if (!calls_.SwapIn(fresh_, path_)) return FailedWith(GetLastError());
    fresh_.clear();
    return {};
  }

 private:
  const FileCalls& calls_;
  FileHandle file_;
  std::string fresh_;  // empty once it has taken its place
  std::string path_;
};

class HoldWin : public FolderHold {
 public:
  explicit HoldWin(FileHandle folder) : folder_(std::move(folder)) {}

 private:
  FileHandle folder_;
};

FileHandle OpenFolder(const FileCalls& calls, const std::string& path, DWORD access) {
  return calls.Open(path, access, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING,
                    FILE_FLAG_BACKUP_SEMANTICS | kOpenLinkItself);
}

// The mark alone does not tell: not everything that bears it stands for another place.
bool IsLinkAt(const FileCalls& calls, const std::string& path) {
  bool is_link = true;
  calls.Find(path, [&](const DirEntry& entry) {
    is_link = entry.IsLink();
    return false;
  });
  return is_link;
}

}  // namespace

Outcome SizeOf(HANDLE file, std::uint64_t* size) {
  DWORD high = 0;
  SetLastError(NO_ERROR);
  const DWORD low = GetFileSize(file, &high);
  if (low == 0xFFFFFFFF && GetLastError() != NO_ERROR) return FailedWith(GetLastError());
  *size = static_cast<std::uint64_t>(high) << 32 | low;
  return {};
}

Outcome WriteAll(HANDLE file, std::string_view bytes) {
  while (!bytes.empty()) {
    const DWORD portion = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1 << 20));
    DWORD written = 0;
    if (!WriteFile(file, bytes.data(), portion, &written, nullptr)) {
      return FailedWith(GetLastError());
    }
    if (written == 0) return Outcome::Failed(kDiskFull);
    bytes.remove_prefix(written);
  }
  return {};
}

Outcome OpenReaderWin(const FileCalls& calls, const std::string& path,
                      std::unique_ptr<FileReader>* reader) {
  calls.BringBack(path);
  FileHandle file = calls.Open(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                               OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL);
  if (!file) return FailedWith(GetLastError());
  std::uint64_t size = 0;
  if (Outcome sized = SizeOf(file.get(), &size); !sized.ok()) return sized;
  *reader = std::make_unique<ReaderWin>(std::move(file), size);
  return {};
}

Outcome OpenWriterWin(const FileCalls& calls, const std::string& path,
                      std::unique_ptr<FileWriter>* writer) {
  calls.BringBack(path);
  FileHandle file;
  std::string fresh;
  if (Outcome made = CreateBeside(calls, std::string(FolderPart(path)), &file, &fresh);
      !made.ok()) {
    return made;
  }
  *writer = std::make_unique<WriterWin>(calls, std::move(file), fresh, path);
  return {};
}

Outcome HoldFolderWin(const FileCalls& calls, const std::string& path,
                      std::unique_ptr<FolderHold>* hold) {
  FileHandle folder;
  if (!IsRootPath(path)) {
    // Without the right to delete shared, nobody can rename what is open.
    folder = OpenFolder(calls, path, GENERIC_READ);
    // Who may not list a folder can still look at it. Windows 95, 98 and Me open no folders and
    // know no links.
    if (!folder) folder = OpenFolder(calls, path, 0);
    if (!folder && calls.KnowsLinks()) return FailedWith(GetLastError());
  }
  const DWORD attributes = calls.Attributes(path);
  if (attributes == kNoAttributes) return FailedWith(GetLastError());
  if (!(attributes & FILE_ATTRIBUTE_DIRECTORY)) return Outcome::Failed(kPathNotFound);
  BY_HANDLE_FILE_INFORMATION opened = {};
  if (folder && GetFileInformationByHandle(folder.get(), &opened) == 0) {
    return FailedWith(GetLastError());
  }
  if (!IsRootPath(path) && ((attributes | opened.dwFileAttributes) & kLink) &&
      IsLinkAt(calls, path)) {
    return Outcome::Failed(kPathFileAccess, "The folder is a link").Because(Caption::ReasonLink);
  }
  *hold = std::make_unique<HoldWin>(std::move(folder));
  return {};
}

bool IsRootPath(const std::string& path) {
  return IsAbsolutePath(path) && RootSize(path) == path.size();
}

}  // namespace scourwell
