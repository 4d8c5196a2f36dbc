#include "platform/win/file_streams_win.h"

#include <windows.h>

#include <algorithm>

#include "platform/file_utils.h"
#include "platform/files.h"
#include "platform/text.h"
#include "platform/win/unique_handle.h"
#include "platform/win/win_error.h"

namespace scourwell {
namespace {

// The headers' own names are newer than the oldest target.
constexpr DWORD kNoAttributes = 0xFFFFFFFF;
constexpr DWORD kOpenLinkItself = 0x00200000;
constexpr unsigned kMostNames = 10000;

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

// Makes a file of a name that nothing in the folder has.
Outcome CreateBeside(const std::string& folder, FileHandle* file, std::string* path) {
  for (unsigned number = 0; number < kMostNames; ++number) {
    *path = folder + "\\~scw" + Padded(number, 4) + ".tmp";
    *file = FileHandle(CreateFileA(path->c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                   FILE_ATTRIBUTE_NORMAL, nullptr));
    if (*file) return {};
    const DWORD code = GetLastError();
    if (code != ERROR_FILE_EXISTS && code != ERROR_ALREADY_EXISTS) return FailedWith(code);
  }
  return Outcome::Failed(kFileExists);
}

// Windows 95, 98 and Me cannot replace a file in one step.
bool ReplacesByMoves() { return (GetVersion() & 0x80000000) != 0; }

// Where the old file is between the moves: after a crash the name tells where it belongs.
std::string AsideOf(const std::string& path) { return path + ".~scw"; }

// Puts `fresh` in the place of `path`.
Outcome SwapIn(const std::string& fresh, const std::string& path) {
  if (!ReplacesByMoves()) {
    return MoveFileExA(fresh.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING)
               ? Outcome()
               : FailedWith(GetLastError());
  }
  const DWORD attributes = GetFileAttributesA(path.c_str());
  if (attributes == kNoAttributes) {
    return MoveFileA(fresh.c_str(), path.c_str()) ? Outcome() : FailedWith(GetLastError());
  }
  if (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) {
    return Outcome::Failed(kPermissionDenied);
  }
  DropAside(path);
  const std::string aside = AsideOf(path);
  if (!MoveFileA(path.c_str(), aside.c_str())) return FailedWith(GetLastError());
  if (!MoveFileA(fresh.c_str(), path.c_str())) {
    const DWORD failed = GetLastError();
    MoveFileA(aside.c_str(), path.c_str());
    return FailedWith(failed);
  }
  DropAside(path);
  return {};
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
  WriterWin(FileHandle file, std::string fresh, std::string path)
      : file_(std::move(file)), fresh_(std::move(fresh)), path_(std::move(path)) {}
  ~WriterWin() override {
    file_.Reset(INVALID_HANDLE_VALUE);
    if (!fresh_.empty()) DeleteFileA(fresh_.c_str());
  }

  Outcome Write(std::string_view bytes) override { return WriteAll(file_.get(), bytes); }

  Outcome Commit() override {
    if (!FlushFileBuffers(file_.get())) return FailedWith(GetLastError());
    file_.Reset(INVALID_HANDLE_VALUE);
    Outcome swapped = SwapIn(fresh_, path_);
    if (swapped.ok()) fresh_.clear();
    return swapped;
  }

 private:
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

FileHandle OpenFolder(const std::string& path, DWORD access, DWORD share) {
  return FileHandle(CreateFileA(path.c_str(), access, share, nullptr, OPEN_EXISTING,
                                FILE_FLAG_BACKUP_SEMANTICS | kOpenLinkItself, nullptr));
}

}  // namespace

bool BringBack(const std::string& path) {
  return ReplacesByMoves() && MoveFileA(AsideOf(path).c_str(), path.c_str());
}

void DropAside(const std::string& path) {
  if (ReplacesByMoves()) DeleteFileA(AsideOf(path).c_str());
}

Outcome OpenReaderWin(const std::string& path, std::unique_ptr<FileReader>* reader) {
  BringBack(path);
  FileHandle file(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                              nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) return FailedWith(GetLastError());
  std::uint64_t size = 0;
  if (Outcome sized = SizeOf(file.get(), &size); !sized.ok()) return sized;
  *reader = std::make_unique<ReaderWin>(std::move(file), size);
  return {};
}

Outcome OpenWriterWin(const std::string& path, std::unique_ptr<FileWriter>* writer) {
  BringBack(path);
  FileHandle file;
  std::string fresh;
  if (Outcome made = CreateBeside(std::string(FolderPart(path)), &file, &fresh); !made.ok()) {
    return made;
  }
  *writer = std::make_unique<WriterWin>(std::move(file), fresh, path);
  return {};
}

Outcome HoldFolderWin(const std::string& path, std::unique_ptr<FolderHold>* hold) {
  FileHandle folder;
  if (!IsRootPath(path)) {
    // Without the right to delete shared, nobody can rename what is open.
    folder = OpenFolder(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
    // Who may not list a folder can still look at it. Windows 95, 98 and Me open no folders and
    // know no links.
    if (!folder) folder = OpenFolder(path, 0, FILE_SHARE_READ | FILE_SHARE_WRITE);
  }
  const DWORD attributes = GetFileAttributesA(path.c_str());
  if (attributes == kNoAttributes) return FailedWith(GetLastError());
  if (!(attributes & FILE_ATTRIBUTE_DIRECTORY)) return Outcome::Failed(kPathNotFound);
  BY_HANDLE_FILE_INFORMATION opened = {};
  if (folder && GetFileInformationByHandle(folder.get(), &opened) == 0) {
    return FailedWith(GetLastError());
  }
  if (!IsRootPath(path) && ((attributes | opened.dwFileAttributes) & kLink)) {
    return Outcome::Failed(kPathFileAccess, "The folder is a link");
  }
  *hold = std::make_unique<HoldWin>(std::move(folder));
  return {};
}

bool IsRootPath(const std::string& path) {
  if (path.size() == 3 && path[1] == ':') return true;
  return path.starts_with("\\\\") && std::count(path.begin(), path.end(), '\\') == 4 &&
         path.back() == '\\';
}

}  // namespace scourwell
