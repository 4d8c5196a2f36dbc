// SPDX-License-Identifier: MIT
#include "offline/posix_tree.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "offline/disk_name.h"
#include "offline/posix_folder.h"
#include "text/paths.h"

namespace scourwell {
namespace {

constexpr std::size_t kLetters = 26;
constexpr std::size_t kMostListed = 200'000;  // names that are kept, roughly 30 MB
constexpr std::size_t kLongestWay = 64;       // folders that are kept open
constexpr unsigned long kExfat = 0x2011BAB0;

bool FoldsNames(int root) {
  struct statfs volume = {};
  if (fstatfs(root, &volume) != 0) return false;
  const auto type = static_cast<unsigned long>(volume.f_type);
  return type == MSDOS_SUPER_MAGIC || type == kExfat;
}

std::shared_ptr<UniqueFd> Share(UniqueFd fd) {
  return fd ? std::make_shared<UniqueFd>(std::move(fd)) : nullptr;
}

Outcome WhyNotEntered(int error, PosixFiles::Tree::Links links) {
  if (error == ENOENT || error == ENOTDIR) return Outcome::Failed(kPathNotFound);
  if (error != ELOOP && error != EXDEV) return FailedWithErrno(error);
  if (links == PosixFiles::Tree::Links::Unseen) return Outcome::Failed(kPathNotFound);
  return Outcome::Failed(kPathFileAccess, "The way leads through a link");
}

}  // namespace

std::string PosixSpot::Path() const {
  return IsRoot() ? folder_path : AddPathToFileName(folder_path, FromDiskName(name));
}

PosixFiles::Tree::Tree(const std::vector<MountedDrive>& drives) {
  drives_.reserve(kLetters);  // they never move
  for (const MountedDrive& drive : drives) Add(drive.letter, drive.folder, false);
  std::ranges::sort(drives_, {}, &PosixDrive::letter);
}

bool PosixFiles::Tree::Add(char letter, const std::string& folder, bool adopted) {
  if (drives_.size() == kLetters) return false;
  // What is given is the user's own word: a link there is followed.
  UniqueFd root(open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  if (!root) return false;
  PosixDrive drive;
  drive.letter = static_cast<char>(letter & ~0x20);
  drive.folder = folder;
  while (drive.folder.size() > 1 && drive.folder.ends_with('/')) drive.folder.pop_back();
  drive.store = AttributeStoreOf(root.get());
  drive.folds = FoldsNames(root.get());
  drive.root = std::move(root);
  drive.adopted = adopted;
  drives_.push_back(std::move(drive));
  return true;
}

const PosixDrive* PosixFiles::Tree::DriveOf(std::string_view path) const {
  if (!IsAbsolutePath(path) || BeginsWithSeparator(path)) return nullptr;
  const auto letter = static_cast<char>(path[0] & ~0x20);
  const auto drive = std::ranges::find(drives_, letter, &PosixDrive::letter);
  return drive == drives_.end() ? nullptr : &*drive;
}

Outcome PosixFiles::Tree::Walk(std::string_view path, Links links, PosixSpot* spot) {
  const PosixDrive* drive = DriveOf(path);
  if (!drive) return Outcome::Failed(kPathNotFound);
  std::string_view below = path.substr(RootSize(path));
  while (EndsInSeparator(below)) below.remove_suffix(1);
  const std::string_view last = FileNamePart(below);
  Step step;
  if (!EnterFolder(*drive, below.substr(0, below.size() - last.size()), links, &step)) {
    return WhyNotEntered(errno, links);
  }
  PosixSpot found{drive, step.folder, step.real, ".", true};
  if (!last.empty()) {
    const auto name = RealName(*drive, step.folder->get(), last);
    if (!name && errno != ENOENT) return FailedWithErrno();
    found.exists = name.has_value();
    // A name that no disk holds is no name for anything new either.
    const auto wanted = name ? name : ToDiskName(last);
    if (!wanted) return Outcome::Failed(kFileNotFound);
    found.name = *wanted;
  }
  *spot = std::move(found);
  return {};
}

Outcome PosixFiles::Tree::Find(std::string_view path, Links links, PosixSpot* spot) {
  Outcome found = Walk(path, links, spot);
  return found.ok() && !spot->exists ? Outcome::Failed(kFileNotFound) : std::move(found);
}

std::size_t PosixFiles::Tree::KnownSteps(std::string_view* below) const {
  std::size_t known = 0;
  while (!below->empty()) {
    std::string_view rest = *below;
    const std::string_view part = TakePart(&rest);
    if (!part.empty()) {
      if (known + 1 == way_.size() || way_[known + 1].part != part) break;
      ++known;
    }
    *below = rest;
  }
  return known;
}

bool PosixFiles::Tree::EnterFolder(const PosixDrive& drive, std::string_view below, Links links,
                                   Step* step) {
  // Whoever changes something goes all the way anew.
  if (way_drive_ != &drive || links == Links::Refused) way_.clear();
  way_drive_ = &drive;
  if (way_.empty()) {
    auto root = Share(OpenBeneath(drive.root.get(), ".", O_PATH | O_DIRECTORY));
    if (!root) return false;
    way_.push_back({"", {drive.letter, ':', kSeparator}, std::move(root)});
  }
  const std::size_t known = KnownSteps(&below);
  *step = way_[known];
  if (!below.empty()) way_.resize(known + 1);
  while (!below.empty()) {
    const std::string_view part = TakePart(&below);
    if (part.empty()) continue;
    Step next;
    if (!EnterPart(drive, part, *step, &next)) return false;
    *step = std::move(next);
    if (way_.size() < kLongestWay) way_.push_back(*step);
  }
  return true;
}

bool PosixFiles::Tree::EnterPart(const PosixDrive& drive, std::string_view part, const Step& at,
                                 Step* next) {
  const auto exact = drive.folds ? std::nullopt : ToDiskName(part);
  const int folder = at.folder->get();
  UniqueFd entered;
  errno = ENOENT;
  if (exact) entered = OpenBeneath(folder, *exact, O_PATH | O_DIRECTORY);
  std::string name(part);
  if (!entered && errno == ENOENT) {
    const auto found = RealName(drive, folder, part);
    if (!found) return false;
    entered = OpenBeneath(folder, *found, O_PATH | O_DIRECTORY);
    name = FromDiskName(*found);
  }
  if (!entered) return false;
  *next = {std::string(part), AddPathToFileName(at.real, name), Share(std::move(entered))};
  return true;
}

std::optional<std::string> PosixFiles::Tree::RealName(const PosixDrive& drive, int folder,
                                                      std::string_view name) {
  const auto exact = ToDiskName(name);
  if (!exact) {
    errno = ENOENT;
    return std::nullopt;
  }
  const auto state = StateOf(folder);
  if (!state) return std::nullopt;
  struct stat facts = {};
  if (!drive.folds && !KnownNames(*state)) {
    if (fstatat(folder, exact->c_str(), &facts, AT_SYMLINK_NOFOLLOW) == 0) return exact;
    if (errno != ENOENT) return std::nullopt;
  }
  const Names* names = NamesOf(folder, *state);
  if (!names) return std::nullopt;
  const auto [first, last] = names->equal_range(name);
  const auto same =
      std::find_if(first, last, [&](const auto& each) { return each.second == *exact; });
  if (same != last) return exact;
  if (first != last) return first->second;
  if (name.find('~') != name.npos) return ByShortName(folder, *names, name);
  errno = ENOENT;
  return std::nullopt;
}

// Some drivers open an item by its 8.3 name, which they do not list.
std::optional<std::string> PosixFiles::Tree::ByShortName(int folder, const Names& names,
                                                         std::string_view name) {
  struct stat facts = {};
  const auto upper = ToDiskName(Upper(name));
  errno = ENOENT;
  if (!upper || fstatat(folder, upper->c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0) {
    return std::nullopt;
  }
  for (const auto& [folded, real] : names) {
    struct stat other = {};
    if (fstatat(folder, real.c_str(), &other, AT_SYMLINK_NOFOLLOW) == 0 &&
        other.st_ino == facts.st_ino && other.st_dev == facts.st_dev) {
      return real;
    }
  }
  return std::nullopt;
}

std::optional<PosixFiles::Tree::FolderState> PosixFiles::Tree::StateOf(int folder) {
  struct stat facts = {};
  if (fstatat(folder, ".", &facts, AT_SYMLINK_NOFOLLOW) != 0) return std::nullopt;
  return FolderState{{facts.st_dev, facts.st_ino},
                     facts.st_mtim.tv_sec * 1'000'000'000 + facts.st_mtim.tv_nsec};
}

const PosixFiles::Tree::Names* PosixFiles::Tree::KnownNames(const FolderState& state) const {
  const auto known = listings_.find(state.id);
  if (known == listings_.end() || known->second.changed != state.changed) return nullptr;
  return &known->second.names;
}

const PosixFiles::Tree::Names* PosixFiles::Tree::NamesOf(int folder, const FolderState& state) {
  if (const Names* known = KnownNames(state)) return known;
  Forget(state.id);
  Names names;
  const Outcome listed = ReadFolder(folder, [&](const char* name, unsigned char) {
    names.emplace(FromDiskName(name), name);
    return true;
  });
  if (!listed.ok()) {
    errno = EACCES;
    return nullptr;
  }
  if (listed_ + names.size() > kMostListed) {
    listings_.clear();
    listed_ = 0;
  }
  listed_ += names.size();
  Listing& listing = listings_[state.id];
  listing = {state.changed, std::move(names)};
  return &listing.names;
}

void PosixFiles::Tree::Forget(const ItemId& id) {
  const auto known = listings_.find(id);
  if (known == listings_.end()) return;
  listed_ -= known->second.names.size();
  listings_.erase(known);
}

Outcome PosixFiles::Tree::OpenFolder(const std::string& path, std::shared_ptr<UniqueFd>* folder,
                                     const PosixDrive** drive) {
  const std::string inside = path + kSeparator;  // of a root it may be missing
  *drive = DriveOf(inside);
  if (!*drive) return Outcome::Failed(kPathNotFound);
  Step step;
  const std::string_view below = std::string_view(inside).substr(RootSize(inside));
  if (!EnterFolder(**drive, below, Links::Unseen, &step)) {
    return WhyNotEntered(errno, Links::Unseen);
  }
  *folder = std::move(step.folder);
  return {};
}

void PosixFiles::Tree::Changed(const UniqueFd& folder) {
  way_.clear();
  if (const auto id = IdOf({folder.get(), "."})) Forget(*id);
}

bool PosixFiles::Tree::IsHeld(const ItemName& item) const {
  if (holds_.empty()) return false;
  const auto id = IdOf(item);
  const auto hold = id ? holds_.find(*id) : holds_.end();
  return hold != holds_.end() && hold->second > 0;
}

std::optional<PosixFiles::Tree::ItemId> IdOf(const ItemName& item) {
  struct stat facts = {};
  if (fstatat(item.folder, item.name, &facts, AT_SYMLINK_NOFOLLOW) != 0) {
    return std::nullopt;
  }
  return PosixFiles::Tree::ItemId(facts.st_dev, facts.st_ino);
}

}  // namespace scourwell
