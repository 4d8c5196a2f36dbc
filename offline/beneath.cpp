// SPDX-License-Identifier: MIT
#include "offline/beneath.h"

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace scourwell {
namespace {

bool SystemLacksCall(int error) { return error == ENOSYS || error == EPERM || error == E2BIG; }

UniqueFd Refused(int error) {
  errno = error;
  return UniqueFd();
}

ErrorCode CodeOf(int error) {
  switch (error) {
    case ENOENT:
      return kFileNotFound;
    case ENOTDIR:
      return kPathNotFound;
    case ELOOP:
    case EXDEV:
    case EISDIR:
    case ENOTEMPTY:
      return kPathFileAccess;
    case EACCES:
    case EPERM:
    case EROFS:
    case ETXTBSY:
    case EBUSY:
      return kPermissionDenied;
    case EEXIST:
      return kFileExists;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return kDiskFull;
    case ENAMETOOLONG:
    case EINVAL:
    case EILSEQ:
      return kBadFileName;
    case ENOMEM:
    case EMFILE:
    case ENFILE:
      return kOutOfMemory;
    case ENODEV:
    case ENXIO:
    case ENOMEDIUM:
    case ENOTCONN:
      return kDiskNotReady;
    default:
      return kDeviceError;
  }
}

}  // namespace

UniqueFd::~UniqueFd() {
  if (fd_ >= 0) close(fd_);
}

UniqueFd OpenBeneath(int folder, const std::string& path, int flags, unsigned mode) {
  static bool has_call = true;
  if (has_call) {
    open_how how = {};
    how.flags = static_cast<unsigned>(flags | O_CLOEXEC);
    how.mode = mode;
    how.resolve = RESOLVE_BENEATH | RESOLVE_NO_SYMLINKS | RESOLVE_NO_MAGICLINKS | RESOLVE_NO_XDEV;
    const auto fd = static_cast<int>(syscall(SYS_openat2, folder, path.c_str(), &how, sizeof how));
    // A file that was swapped on the way is another try's.
    if (fd >= 0 || !SystemLacksCall(errno)) return UniqueFd(fd);
    // EPERM may be the file's own answer: only a call that can do no harm tells.
    how = {};
    how.flags = O_PATH | O_CLOEXEC;
    how.resolve = RESOLVE_BENEATH;
    const UniqueFd self(static_cast<int>(syscall(SYS_openat2, folder, ".", &how, sizeof how)));
    has_call = static_cast<bool>(self);
  }
  return OpenPartByPart(folder, path, flags, mode);
}

UniqueFd OpenPartByPart(int folder, const std::string& path, int flags, unsigned mode) {
  struct stat root = {};
  if (fstat(folder, &root) != 0) return UniqueFd();
  if (path.starts_with("/")) return Refused(EXDEV);
  UniqueFd at;
  for (std::size_t begin = 0; begin <= path.size();) {
    const std::size_t end = std::min(path.find('/', begin), path.size());
    const std::string part = path.substr(begin, end - begin);
    begin = end + 1;
    if (part.empty()) continue;
    if (part == "..") return Refused(EXDEV);
    const bool last = end == path.size();
    const int how = last ? flags : O_PATH | O_DIRECTORY;
    UniqueFd next(openat(at ? at.get() : folder, part.c_str(), how | O_NOFOLLOW | O_CLOEXEC, mode));
    if (!next) {
      // A link that stands for a folder says only that it is none.
      struct stat facts = {};
      const int error = errno;
      const bool link =
          error == ENOTDIR &&
          fstatat(at ? at.get() : folder, part.c_str(), &facts, AT_SYMLINK_NOFOLLOW) == 0 &&
          S_ISLNK(facts.st_mode);
      return Refused(link ? ELOOP : error);
    }
    struct stat facts = {};
    if (fstat(next.get(), &facts) != 0) return UniqueFd();
    if (facts.st_dev != root.st_dev) return Refused(EXDEV);
    // With O_PATH a link itself is opened.
    if (S_ISLNK(facts.st_mode) && !(last && (flags & O_NOFOLLOW))) return Refused(ELOOP);
    at = std::move(next);
  }
  return at ? std::move(at) : UniqueFd(openat(folder, ".", flags | O_CLOEXEC, mode));
}

Outcome FailedWithErrno(int error) {
  const ErrorCode code = CodeOf(error);
  // What the system alone can name stays named.
  if (code != kDeviceError) return Outcome::Failed(code);
  return Outcome::Failed(code, std::string("The system says: ") + strerror(error));
}

Outcome FailedWithErrno() { return FailedWithErrno(errno); }

}  // namespace scourwell
