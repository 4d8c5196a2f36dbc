// SPDX-License-Identifier: MIT
#include "offline/posix_streams.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace scourwell {
namespace {

constexpr int kCarefully = O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;
constexpr mode_t kNewFile = 0644;
constexpr int kMostTries = 1000;  // for a name that nobody has

Outcome WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return FailedWithErrno();
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return {};
}

class PosixReader : public FileReader {
 public:
  PosixReader(UniqueFd file, std::uint64_t size) : file_(std::move(file)), size_(size) {}

  std::uint64_t size() const override { return size_; }
  Outcome ReadAt(std::uint64_t offset, char* bytes, std::size_t count,
                 std::size_t* filled) override {
    *filled = 0;
    while (*filled < count) {
      const ssize_t portion = pread(file_.get(), bytes + *filled, count - *filled,
                                    static_cast<off_t>(offset + *filled));
      if (portion < 0 && errno == EINTR) continue;
      if (portion < 0) return FailedWithErrno();
      if (portion == 0) break;
      *filled += static_cast<std::size_t>(portion);
    }
    return {};
  }

 private:
  UniqueFd file_;
  std::uint64_t size_;
};

class PosixWriter : public FileWriter {
 public:
  PosixWriter(PosixFiles::Tree& tree, PosixSpot spot, std::string beside, UniqueFd file)
      : tree_(tree), spot_(std::move(spot)), beside_(std::move(beside)), file_(std::move(file)) {}
  ~PosixWriter() override {
    if (!beside_.empty()) unlinkat(spot_.folder->get(), beside_.c_str(), 0);
  }

  Outcome Write(std::string_view bytes) override { return WriteAll(file_.get(), bytes); }

  Outcome Commit() override {
    if (Outcome taken = TakeOver(); !taken.ok()) return taken;
    if (fsync(file_.get()) != 0) return FailedWithErrno();
    // Some volumes tell only now that they are full.
    if (close(file_.Release()) != 0) return FailedWithErrno();
    const int folder = spot_.folder->get();
    if (renameat(folder, beside_.c_str(), folder, spot_.name.c_str()) != 0) {
      return FailedWithErrno();
    }
    beside_.clear();
    tree_.Changed(*spot_.folder);
    const UniqueFd open(OpenBeneath(folder, ".", O_RDONLY | O_DIRECTORY));
    if (open) fsync(open.get());
    return {};
  }

 private:
  // The new file belongs to whoever had the old one.
  Outcome TakeOver() {
    struct stat old = {};
    if (fstatat(spot_.folder->get(), spot_.name.c_str(), &old, AT_SYMLINK_NOFOLLOW) != 0) {
      return errno == ENOENT ? Outcome() : FailedWithErrno();
    }
    if (!S_ISREG(old.st_mode)) return Outcome::Failed(kPathFileAccess);
    if (DosAttributes(spot_.drive->store, spot_.item(), old.st_mode) & kReadOnly) {
      return Outcome::Failed(kPermissionDenied);
    }
    if (fchown(file_.get(), old.st_uid, old.st_gid) != 0 && errno != EPERM) {
      return FailedWithErrno();
    }
    return fchmod(file_.get(), old.st_mode & 0777) == 0 || errno == EPERM ? Outcome()
                                                                          : FailedWithErrno();
  }

  PosixFiles::Tree& tree_;
  PosixSpot spot_;
  std::string beside_;  // empty once it has taken its place
  UniqueFd file_;
};

}  // namespace

Outcome OpenReaderAt(const ItemName& item, std::unique_ptr<FileReader>* reader) {
  UniqueFd file(openat(item.folder, item.name, O_RDONLY | O_CLOEXEC | kCarefully));
  if (!file) return FailedWithErrno();
  struct stat facts = {};
  if (fstat(file.get(), &facts) != 0) return FailedWithErrno();
  if (!S_ISREG(facts.st_mode)) return Outcome::Failed(kPathFileAccess);
  *reader =
      std::make_unique<PosixReader>(std::move(file), static_cast<std::uint64_t>(facts.st_size));
  return {};
}

Outcome OpenWriterAt(PosixFiles::Tree& tree, const PosixSpot& spot,
                     std::unique_ptr<FileWriter>* writer) {
  for (int number = 0; number < kMostTries; ++number) {
    char beside[40];
    std::snprintf(beside, sizeof beside, "~scourwell%d-%d.tmp", static_cast<int>(getpid()), number);
    UniqueFd file(openat(spot.folder->get(), beside,
                         O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kNewFile));
    if (!file && errno == EEXIST) continue;
    if (!file) return FailedWithErrno();
    *writer = std::make_unique<PosixWriter>(tree, spot, beside, std::move(file));
    return {};
  }
  return Outcome::Failed(kFileExists);
}

Outcome AppendAt(const ItemName& item, std::string_view text) {
  const UniqueFd file(openat(item.folder, item.name,
                             O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | kCarefully, kNewFile));
  if (!file) return errno == ELOOP ? Outcome::Failed(kPermissionDenied) : FailedWithErrno();
  struct stat facts = {};
  if (fstat(file.get(), &facts) != 0) return FailedWithErrno();
  if (!S_ISREG(facts.st_mode) || facts.st_nlink > 1) return Outcome::Failed(kPermissionDenied);
  return WriteAll(file.get(), text);
}

}  // namespace scourwell
