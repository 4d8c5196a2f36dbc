// SPDX-License-Identifier: MIT
#include "offline/dos_attributes.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <linux/msdos_fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "offline/beneath.h"

namespace scourwell {
namespace {

constexpr char kNtfsAttributes[] = "system.ntfs_attrib_be";
constexpr char kNtfsCreated[] = "system.ntfs_crtime_be";
constexpr char kNtfsSecurity[] = "system.ntfs_acl";
constexpr char kNtfsShortName[] = "system.ntfs_dos_name";
constexpr char kNamed[] = "user.DOSATTRIB";
constexpr std::size_t kLargestSecurity = 64 * 1024;

constexpr std::uint32_t kTold = kReadOnly | kHidden | kSystem | kFolder | kArchive;
constexpr std::uint32_t kSettable = kReadOnly | kHidden | kSystem | kArchive;

// Attributes go by paths only, and this one leads to nothing but the item: a link is asked itself.
std::string Handle(const ItemName& item) {
  return "/proc/self/fd/" + std::to_string(item.folder) + "/" + item.name;
}

std::string Attribute(const ItemName& item, const char* attribute, std::size_t most) {
  std::string value(most, '\0');
  const ssize_t size = lgetxattr(Handle(item).c_str(), attribute, value.data(), value.size());
  value.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
  return value;
}

Outcome SetAttribute(const ItemName& item, const char* attribute, const std::string& value) {
  if (lsetxattr(Handle(item).c_str(), attribute, value.data(), value.size(), 0) == 0) return {};
  if (errno == EOPNOTSUPP) {
    return Outcome::Failed(kPermissionDenied, "The volume does not keep that");
  }
  return FailedWithErrno();
}

std::uint32_t BigEndian(const std::string& bytes) {
  std::uint32_t number = 0;
  for (const char c : bytes) number = number << 8 | static_cast<unsigned char>(c);
  return number;
}

std::string ToBigEndian(std::uint64_t number, unsigned bytes) {
  std::string text;
  while (bytes-- > 0) text += static_cast<char>(number >> (8 * bytes) & 0xFF);
  return text;
}

UniqueFd OpenForAttributes(const ItemName& item) {
  return UniqueFd(
      openat(item.folder, item.name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
}

std::uint32_t OfMode(unsigned mode) {
  std::uint32_t attributes = S_ISDIR(mode) ? kFolder : 0u;
  if (!S_ISDIR(mode) && !S_ISLNK(mode) && !(mode & S_IWUSR)) attributes |= kReadOnly;
  return attributes;
}

Outcome SetMode(const ItemName& item, bool read_only) {
  struct stat facts = {};
  if (fstatat(item.folder, item.name, &facts, AT_SYMLINK_NOFOLLOW) != 0) {
    return FailedWithErrno();
  }
  if (S_ISLNK(facts.st_mode) || S_ISDIR(facts.st_mode)) return {};
  const mode_t mode = read_only ? facts.st_mode & ~mode_t{0222} : facts.st_mode | S_IWUSR;
  if (mode == facts.st_mode) return {};
  const UniqueFd open = OpenForAttributes(item);
  if (!open || fchmod(open.get(), mode & 07777) != 0) return FailedWithErrno();
  return {};
}

}  // namespace

AttributeStore AttributeStoreOf(int root) {
  struct statfs volume = {};
  if (fstatfs(root, &volume) == 0 && volume.f_type == MSDOS_SUPER_MAGIC) return AttributeStore::Fat;
  const bool ntfs = Attribute({root, "."}, kNtfsAttributes, 4).size() == 4;
  return ntfs ? AttributeStore::Ntfs : AttributeStore::Named;
}

std::uint32_t DosAttributes(AttributeStore store, const ItemName& item, unsigned mode) {
  if (store == AttributeStore::Ntfs) {
    const std::string told = Attribute(item, kNtfsAttributes, 4);
    return told.size() == 4 ? BigEndian(told) & kTold : OfMode(mode);
  }
  if (store == AttributeStore::Fat) {
    const UniqueFd open = OpenForAttributes(item);
    std::uint32_t told = 0;
    const bool known = open && ioctl(open.get(), FAT_IOCTL_GET_ATTRIBUTES, &told) == 0;
    return known ? told & kTold : OfMode(mode);
  }
  std::uint32_t attributes = OfMode(mode);
  // Links have no room for it.
  if (S_ISLNK(mode)) return attributes;
  const std::string told = Attribute(item, kNamed, 256);
  if (told.starts_with("0x")) {
    attributes |= static_cast<std::uint32_t>(std::strtoul(told.c_str(), nullptr, 16)) &
                  (kHidden | kSystem | kArchive);
  }
  return attributes;
}

Outcome SetDosAttributes(AttributeStore store, const ItemName& item, std::uint32_t attributes) {
  attributes &= kSettable;
  if (store == AttributeStore::Ntfs) {
    const std::string told = Attribute(item, kNtfsAttributes, 4);
    const std::uint32_t kept = BigEndian(told) & ~kSettable;
    return SetAttribute(item, kNtfsAttributes, ToBigEndian(kept | attributes, 4));
  }
  if (store == AttributeStore::Fat) {
    const UniqueFd open = OpenForAttributes(item);
    if (!open) return FailedWithErrno();
    return ioctl(open.get(), FAT_IOCTL_SET_ATTRIBUTES, &attributes) == 0 ? Outcome()
                                                                         : FailedWithErrno();
  }
  // First what needs the right to write.
  if (Outcome set = SetMode(item, false); !set.ok()) return set;
  char text[16];
  std::snprintf(text, sizeof text, "0x%x", attributes & ~kReadOnly);
  const bool any = (attributes & ~kReadOnly) != 0;
  if (any || !Attribute(item, kNamed, 256).empty()) {
    if (Outcome set = SetAttribute(item, kNamed, text); !set.ok() && any) return set;
  }
  return SetMode(item, (attributes & kReadOnly) != 0);
}

void SetCreationTime(AttributeStore store, const ItemName& item, FileTime time) {
  if (store != AttributeStore::Ntfs || time == 0) return;
  static_cast<void>(SetAttribute(item, kNtfsCreated, ToBigEndian(time, 8)));
}

std::string SecurityOf(AttributeStore store, const ItemName& item) {
  if (store != AttributeStore::Ntfs) return {};
  return Attribute(item, kNtfsSecurity, kLargestSecurity);
}

Outcome SetSecurityOf(AttributeStore store, const ItemName& item, const std::string& descriptor) {
  if (store != AttributeStore::Ntfs || descriptor.empty()) return {};
  return SetAttribute(item, kNtfsSecurity, descriptor);
}

std::string ShortNameOf(AttributeStore store, const ItemName& item) {
  if (store != AttributeStore::Ntfs) return {};
  return Attribute(item, kNtfsShortName, 64);
}

}  // namespace scourwell
