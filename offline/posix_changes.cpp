// SPDX-License-Identifier: MIT

// What PosixFiles does with folders, names, attributes, times and opened items.
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "offline/disk_name.h"
#include "offline/posix_tree.h"
#include "text/paths.h"

namespace scourwell {
namespace {

using Tree = PosixFiles::Tree;
using Links = Tree::Links;

constexpr mode_t kNewFolder = 0755;
constexpr mode_t kClosedFolder = 0700;
constexpr std::int64_t kEpoch = 116'444'736'000'000'000;  // from 1601 to 1970

timespec ToTimespec(FileTime time) {
  if (time == 0) return {0, UTIME_OMIT};
  const std::int64_t steps = static_cast<std::int64_t>(time) - kEpoch;
  const std::int64_t seconds = steps / 10'000'000 - (steps % 10'000'000 < 0);
  return {seconds, (steps - seconds * 10'000'000) * 100};
}

// Whether the name still leads to that very item.
bool Leads(const ItemName& item, const Tree::ItemId& id) { return IdOf(item) == id; }

// Whether both are one and the same name. An item may have several, each of which goes alone.
bool IsSameName(const PosixSpot& one, const PosixSpot& other) {
  struct stat facts = {};
  if (!other.exists || IdOf(one.item()) != IdOf(other.item())) return false;
  if (one.name == other.name &&
      IdOf({one.folder->get(), "."}) == IdOf({other.folder->get(), "."})) {
    return true;
  }
  return fstatat(one.folder->get(), one.name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) == 0 &&
         (S_ISDIR(facts.st_mode) || facts.st_nlink == 1);
}

Outcome MoveItem(Tree& tree, const PosixSpot& from, const std::string& path) {
  PosixSpot to;
  if (Outcome walked = tree.Walk(path, Links::Refused, &to); !walked.ok()) return walked;
  const bool itself = IsSameName(from, to);
  if (to.exists && !itself) return Outcome::Failed(kFileExists);
  // It takes the spelling that is asked for.
  if (itself) to.name = ToDiskName(FileNamePart(path)).value_or(to.name);
  if (from.IsRoot() || tree.IsHeld(from.item())) return Outcome::Failed(kPermissionDenied);
  const int source = from.folder->get();
  const int target = to.folder->get();
  int moved =
      renameat2(source, from.name.c_str(), target, to.name.c_str(), itself ? 0 : RENAME_NOREPLACE);
  // Some drivers know nothing of that flag; that nothing is there was seen just before.
  if (moved != 0 && errno == EINVAL && !itself) {
    moved = renameat(source, from.name.c_str(), target, to.name.c_str());
  }
  if (moved != 0) return errno == ENOTEMPTY ? Outcome::Failed(kFileExists) : FailedWithErrno();
  tree.Changed(*from.folder);
  tree.Changed(*to.folder);
  return {};
}

Outcome Unlink(Tree& tree, const PosixSpot& spot, bool folder) {
  if (spot.IsRoot() || tree.IsHeld(spot.item())) return Outcome::Failed(kPermissionDenied);
  if (unlinkat(spot.folder->get(), spot.name.c_str(), folder ? AT_REMOVEDIR : 0) != 0) {
    return errno == EEXIST ? Outcome::Failed(kPathFileAccess) : FailedWithErrno();
  }
  tree.Changed(*spot.folder);
  return {};
}

class PosixItem : public OpenedItem {
 public:
  PosixItem(Tree& tree, PosixSpot spot, UniqueFd item, const DirEntry& entry, Tree::ItemId id)
      : tree_(tree),
        spot_(std::move(spot)),
        item_(std::move(item)),
        path_(spot_.Path()),
        attributes_(entry.attributes),
        id_(id) {}

  const std::string& true_path() const override { return path_; }
  std::uint32_t attributes() const override { return attributes_; }
  bool IsHeld() const override { return false; }  // nobody uses this disk
  Outcome Erase() override {
    if (!Leads(spot_.item(), id_)) return Outcome::Failed(kFileNotFound);
    return Unlink(tree_, spot_, (attributes_ & kFolder) != 0 && (attributes_ & kLink) == 0);
  }
  Outcome MoveTo(const std::string& path) override {
    if (!Leads(spot_.item(), id_)) return Outcome::Failed(kFileNotFound);
    return MoveItem(tree_, spot_, path);
  }

 private:
  Tree& tree_;
  PosixSpot spot_;
  UniqueFd item_;  // keeps its number from being given to another
  std::string path_;
  std::uint32_t attributes_;
  Tree::ItemId id_;
};

class PosixHold : public FolderHold {
 public:
  PosixHold(Tree& tree, Tree::ItemId id) : tree_(tree), id_(id) { ++tree_.holds()[id_]; }
  ~PosixHold() override {
    if (--tree_.holds()[id_] == 0) tree_.holds().erase(id_);
  }

 private:
  Tree& tree_;
  Tree::ItemId id_;
};

class RootHold : public FolderHold {};

Outcome MakeFolder(Tree& tree, const std::string& path, mode_t mode) {
  PosixSpot spot;
  Outcome walked = tree.Walk(path, Links::Refused, &spot);
  if (walked.code() == kFileNotFound) return Outcome::Failed(kBadFileName);
  if (!walked.ok()) return walked;
  if (spot.exists) return Outcome::Failed(kFileExists);
  if (mkdirat(spot.folder->get(), spot.name.c_str(), mode) != 0) return FailedWithErrno();
  tree.Changed(*spot.folder);
  return {};
}

}  // namespace

Outcome PosixFiles::EraseFile(const std::string& path) {
  PosixSpot spot;
  if (Outcome found = tree_->Find(path, Links::Refused, &spot); !found.ok()) return found;
  DirEntry entry;
  if (Outcome seen = Describe(*spot.drive, spot.item(), true, &entry); !seen.ok()) return seen;
  if (entry.IsFolder()) return Outcome::Failed(kPathFileAccess);
  if (entry.attributes & kReadOnly) return Outcome::Failed(kPermissionDenied);
  return Unlink(*tree_, spot, false);
}

Outcome PosixFiles::CreateFolder(const std::string& path) {
  return MakeFolder(*tree_, path, kNewFolder);
}

Outcome PosixFiles::CreateGuardedFolder(const std::string& path) {
  return MakeFolder(*tree_, path, kClosedFolder);
}

Outcome PosixFiles::RemoveFolder(const std::string& path) {
  PosixSpot spot;
  if (Outcome found = tree_->Find(path, Links::Refused, &spot); !found.ok()) return found;
  DirEntry entry;
  if (Outcome seen = Describe(*spot.drive, spot.item(), true, &entry); !seen.ok()) return seen;
  if (!entry.IsFolder()) return Outcome::Failed(kPathNotFound);
  return Unlink(*tree_, spot, !entry.IsLink());
}

Outcome PosixFiles::Move(const std::string& from, const std::string& to) {
  PosixSpot source;
  Outcome found = tree_->Find(from, Links::Refused, &source);
  return found.ok() ? MoveItem(*tree_, source, to) : std::move(found);
}

Outcome PosixFiles::TakePlace(const std::string& fresh, const std::string& path) {
  PosixSpot from, to;
  if (Outcome found = tree_->Find(fresh, Links::Refused, &from); !found.ok()) return found;
  if (Outcome found = tree_->Find(path, Links::Refused, &to); !found.ok()) return found;
  DirEntry entry;
  if (Outcome seen = Describe(*to.drive, to.item(), true, &entry); !seen.ok()) return seen;
  struct stat old = {};
  const int folder = to.folder->get();
  if (fstatat(folder, to.name.c_str(), &old, AT_SYMLINK_NOFOLLOW) != 0) return FailedWithErrno();
  // A volume that knows no owners refuses; what it knows follows.
  static_cast<void>(
      fchownat(from.folder->get(), from.name.c_str(), old.st_uid, old.st_gid, AT_SYMLINK_NOFOLLOW));
  static_cast<void>(fchmodat(from.folder->get(), from.name.c_str(), old.st_mode & 0777, 0));
  const std::string security = SecurityOf(to.drive->store, to.item());
  Outcome kept = SetSecurityOf(from.drive->store, from.item(), security);
  if (kept.ok()) kept = SetDosAttributes(from.drive->store, from.item(), entry.attributes);
  if (!kept.ok()) return kept;
  if (renameat(from.folder->get(), from.name.c_str(), folder, to.name.c_str()) != 0) {
    return FailedWithErrno();
  }
  tree_->Changed(*to.folder);
  const UniqueFd open = OpenBeneath(folder, ".", O_RDONLY | O_DIRECTORY);
  if (open) fsync(open.get());
  return {};
}

Outcome PosixFiles::SetAttributes(const std::string& path, std::uint32_t attributes) {
  PosixSpot spot;
  if (Outcome found = tree_->Find(path, Links::Refused, &spot); !found.ok()) return found;
  return SetDosAttributes(spot.drive->store, spot.item(), attributes);
}

Outcome PosixFiles::SetTimes(const std::string& path, const FileTimes& times) {
  PosixSpot spot;
  if (Outcome found = tree_->Find(path, Links::Refused, &spot); !found.ok()) return found;
  SetCreationTime(spot.drive->store, spot.item(), times.created);
  const timespec set[] = {ToTimespec(times.accessed), ToTimespec(times.modified)};
  if (utimensat(spot.folder->get(), spot.name.c_str(), set, AT_SYMLINK_NOFOLLOW) == 0) return {};
  return FailedWithErrno();
}

Outcome PosixFiles::HoldFolder(const std::string& path, std::unique_ptr<FolderHold>* hold) {
  PosixSpot spot;
  if (Outcome found = tree_->Find(path, Links::Refused, &spot); !found.ok()) return found;
  if (spot.IsRoot()) {
    *hold = std::make_unique<RootHold>();
    return {};
  }
  DirEntry entry;
  if (Outcome seen = Describe(*spot.drive, spot.item(), true, &entry); !seen.ok()) return seen;
  if (entry.IsLink()) return Outcome::Failed(kPathFileAccess, "The folder is a link");
  if (!entry.IsFolder()) return Outcome::Failed(kPathNotFound);
  const auto id = IdOf(spot.item());
  if (!id) return FailedWithErrno();
  *hold = std::make_unique<PosixHold>(*tree_, *id);
  return {};
}

Outcome PosixFiles::OpenItem(const std::string& path, std::unique_ptr<OpenedItem>* item) {
  PosixSpot spot;
  if (Outcome found = tree_->Find(path, Links::Refused, &spot); !found.ok()) return found;
  UniqueFd open = OpenBeneath(spot.folder->get(), spot.name, O_PATH | O_NOFOLLOW);
  if (!open) return FailedWithErrno();
  struct stat facts = {};
  if (fstat(open.get(), &facts) != 0) return FailedWithErrno();
  const Tree::ItemId id(facts.st_dev, facts.st_ino);
  DirEntry entry;
  if (Outcome seen = Describe(*spot.drive, spot.item(), true, &entry); !seen.ok()) return seen;
  if (!Leads(spot.item(), id)) return Outcome::Failed(kFileNotFound);
  *item = std::make_unique<PosixItem>(*tree_, std::move(spot), std::move(open), entry, id);
  return {};
}

Outcome PosixFiles::Identify(const std::string& path, FileId* id) {
  PosixSpot spot;
  Outcome found = tree_->Find(path, Links::Refused, &spot);
  if (found.code() == kPathNotFound) return Outcome::Failed(kFileNotFound);
  if (!found.ok()) return found;
  const auto known = IdOf(spot.item());
  if (!known) return FailedWithErrno();
  *id = {static_cast<std::uint32_t>(known->first), known->second};
  return {};
}

// On a disk that does not run nobody else is there.
bool PosixFiles::IsGuarded(const std::string& folder) {
  PosixSpot spot;
  struct stat facts = {};
  if (!tree_->Find(folder, Links::Refused, &spot).ok()) return false;
  if (!spot.drive->adopted) return true;
  return fstatat(spot.folder->get(), spot.name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) == 0 &&
         (facts.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

std::string PosixFiles::Security(const std::string& path) {
  PosixSpot spot;
  if (!tree_->Find(path, Links::Refused, &spot).ok()) return {};
  return SecurityOf(spot.drive->store, spot.item());
}

Outcome PosixFiles::SetSecurity(const std::string& path, const std::string& descriptor) {
  PosixSpot spot;
  if (Outcome found = tree_->Find(path, Links::Refused, &spot); !found.ok()) return found;
  return SetSecurityOf(spot.drive->store, spot.item(), descriptor);
}

}  // namespace scourwell
