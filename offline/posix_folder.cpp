// SPDX-License-Identifier: MIT
#include "offline/posix_folder.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <cerrno>
#include <memory>
#include <string_view>

#include "offline/disk_name.h"

namespace scourwell {
namespace {

// The steps of FileTime from 1601 to the year from which this system counts.
constexpr std::int64_t kEpoch = 116'444'736'000'000'000;

FileTime ToFileTime(const statx_timestamp& time) {
  const std::int64_t steps = time.tv_sec * 10'000'000 + time.tv_nsec / 100 + kEpoch;
  return steps > 0 ? static_cast<FileTime>(steps) : 0;
}

constexpr std::size_t kListed = 32 * 1024;  // bytes of names that one question gets

}  // namespace

Outcome ReadFolder(int folder, const VisitName& visit) {
  const UniqueFd open = OpenBeneath(folder, ".", O_RDONLY | O_DIRECTORY);
  if (!open) return FailedWithErrno();
  const auto buffer = std::make_unique_for_overwrite<char[]>(kListed);
  for (;;) {
    const ssize_t filled = getdents64(open.get(), buffer.get(), kListed);
    if (filled <= 0) return filled == 0 ? Outcome() : FailedWithErrno();
    for (ssize_t at = 0; at < filled;) {
      const auto* entry = reinterpret_cast<const dirent64*>(buffer.get() + at);
      at += entry->d_reclen;
      const std::string_view name = entry->d_name;
      if (name == "." || name == "..") continue;
      if (!visit(entry->d_name, entry->d_type)) return {};
    }
  }
}

Outcome Describe(const PosixDrive& drive, const ItemName& item, bool all, DirEntry* entry) {
  struct statx facts = {};
  if (statx(item.folder, item.name, AT_SYMLINK_NOFOLLOW | AT_STATX_DONT_SYNC,
            STATX_BASIC_STATS | STATX_BTIME, &facts) != 0) {
    return FailedWithErrno();
  }
  *entry = {};
  entry->name = FromDiskName(item.name);
  const bool link = S_ISLNK(facts.stx_mode);
  const bool folder = S_ISDIR(facts.stx_mode);
  entry->attributes = (link ? kLink : 0u) | (folder ? kFolder : 0u);
  if (all) {
    entry->attributes |= DosAttributes(drive.store, item, facts.stx_mode);
    entry->short_name = FromDiskName(ShortNameOf(drive.store, item));
    if (entry->short_name == entry->name) entry->short_name.clear();
  }
  entry->size = S_ISREG(facts.stx_mode) ? facts.stx_size : 0;
  entry->modified = ToFileTime(facts.stx_mtime);
  entry->accessed = ToFileTime(facts.stx_atime);
  entry->created = (facts.stx_mask & STATX_BTIME) ? ToFileTime(facts.stx_btime) : entry->modified;
  return {};
}

}  // namespace scourwell
