// SPDX-License-Identifier: MIT
#include "guard/path_guard.h"

#include <algorithm>

#include "guard/vital_files.h"
#include "machine/file_utils.h"
#include "machine/real_path.h"
#include "text/caption_ids.h"
#include "text/text.h"

namespace scourwell {
namespace {

Outcome Refused(const std::string& why) {
  return Outcome::Failed(kPermissionDenied, "It is protected: " + why)
      .Because(Caption::ReasonProtected);
}

Outcome RootRefused() { return Refused("it is the root of a drive"); }

std::string_view WithoutStartSeparator(std::string_view path) {
  if (BeginsWithSeparator(path)) path.remove_prefix(1);
  return path;
}

// Every machine of the NT family shares its drives as "C$" and its Windows as "ADMIN$", also with
// itself, which has many names. What would be refused here is refused on any of them. Empty for
// other paths.
std::string BehindAdministrativeShare(std::string_view path, const std::string& windows) {
  if (!path.starts_with("\\\\")) return {};
  std::string_view rest = BehindFirstPart(path.substr(2));
  const std::string_view share = TakePart(&rest);
  if (EqualsNoCase(share, "ADMIN$")) return AddPathToFileName(windows, rest);
  if (share.size() != 2 || share[1] != '$') return {};
  return AddPathToFileName(std::string(1, share[0]) + ":\\", rest);
}

bool Holds(std::span<const char* const> names, std::string_view name) {
  return std::ranges::any_of(names, [&](const char* each) { return EqualsNoCase(each, name); });
}

}  // namespace

void PathGuard::Prepare() {
  if (prepared_) return;
  prepared_ = true;
  const auto protect = [&](std::string_view folder, bool contents = false) {
    if (folder.size() < 3) return;
    protected_.push_back({RealPath(files_, std::string(WithoutEndSeparators(folder))), contents});
  };
  for (const std::string* folder :
       {&folders_.windows, &folders_.system, &folders_.app_data, &folders_.temporary,
        &folders_.program_files, &folders_.common_files, &folders_.system_wow64,
        &folders_.program_files_64, &folders_.common_files_64}) {
    protect(*folder);
  }
  for (const std::string& folder : folders_.special) protect(folder);
  for (const vital::Folder& folder : vital::kFolders) {
    const std::string& above = folders_.*folder.above;
    if (above.empty()) continue;
    protect(AddPathToFileName(above, folder.path), folder.extent == vital::Extent::Contents);
  }
  for (const vital::Files& files : vital::kFiles) {
    const std::string& above = folders_.*files.above;
    if (above.empty()) continue;
    const std::string folder = AddPathToFileName(above, files.path);
    vital_.push_back({RealPath(files_, std::string(WithoutEndSeparators(folder))), files.names});
  }
  own_ = RealPath(files_, std::string(WithoutEndSeparators(folders_.application)));
  own_shared_ = own_.size() <= 3 || !Judge(own_).ok();
  for (const ProtectedFolder& folder : protected_) AddAnchors(folder.path);
  for (const VitalFiles& files : vital_) AddAnchors(files.folder);
  AddAnchors(own_);
}

// A folder with those on the way to it, unless they are there already.
void PathGuard::AddAnchors(const std::string& folder) {
  if (!IsAbsolutePath(folder)) return;
  std::string path = folder;
  for (;;) {
    if (std::ranges::any_of(anchors_,
                            [&](const Anchor& a) { return EqualsNoCase(a.path, path); })) {
      return;
    }
    FileId id;
    if (files_.Identify(path, &id).ok()) anchors_.push_back({id, path});
    const std::size_t root = RootSize(path);
    if (root >= path.size()) return;
    path = path.substr(0, std::max(root, FolderPart(path).size()));
  }
}

bool PathGuard::IsOwn(const std::string& real) const {
  if (IsAtOrBelow(own_, real)) return true;
  if (!IsAtOrBelow(real, own_)) return false;
  if (!own_shared_) return true;
  // Beside the program lie others' files: its own are known by their names.
  const std::string_view below = std::string_view(real).substr(own_.size());
  return Holds(vital::kOwn, FirstPart(WithoutStartSeparator(below)));
}

bool PathGuard::IsVital(const std::string& real) const {
  const std::size_t root = RootSize(real);
  const std::string_view below = std::string_view(real).substr(std::min(root, real.size()));
  const std::string_view name = FileNamePart(real);
  if (below == name && Holds(vital::kInRoot, name)) return true;
  if (Holds(vital::kRootFolders, FirstPart(below))) return true;
  if (Holds(vital::kAnywhere, name)) return true;
  const std::string_view folder = WithoutEndSeparators(FolderPart(real));
  return std::ranges::any_of(vital_, [&](const VitalFiles& files) {
    return EqualsNoCase(files.folder, folder) && Holds(files.names, name);
  });
}

Outcome PathGuard::Judge(const std::string& real) const {
  const ProtectedFolder* innermost = nullptr;
  for (const ProtectedFolder& folder : protected_) {
    if (IsAtOrBelow(folder.path, real)) {
      return Refused(
          "the folder " + folder.path +
          (folder.path.size() == real.size() ? " itself is never touched" : " lies in it"));
    }
    if (!IsAtOrBelow(real, folder.path)) continue;
    if (!innermost || innermost->path.size() < folder.path.size()) innermost = &folder;
  }
  if ((innermost && innermost->contents) || IsVital(real)) {
    return Refused("Windows needs it");
  }
  return {};
}

Outcome PathGuard::JudgeName(const std::string& real) const {
  if (RootSize(real) >= real.size()) return RootRefused();
  if (IsOwn(real)) {
    return Refused("it belongs to Scourwell itself");
  }
  return Judge(real);
}

Outcome PathGuard::JudgeEverywhere(const std::string& real) {
  Outcome judged = JudgeName(real);
  if (!judged.ok()) return judged;
  const std::string local = BehindAdministrativeShare(real, folders_.windows);
  if (!local.empty()) judged = JudgeName(RealPath(files_, local));
  return judged.ok() ? JudgeByNumbers(real) : std::move(judged);
}

// The innermost folder on the way that is known by its number says under which name the item is to
// be judged.
Outcome PathGuard::JudgeByNumbers(const std::string& real) {
  const std::size_t root = RootSize(real);
  bool doubtful = false;
  for (std::size_t end = real.size();;) {
    FileId id;
    const Outcome known = files_.Identify(real.substr(0, end), &id);
    if (!known.ok() && known.code() != kFileNotFound && known.code() != kPathNotFound) return known;
    if (known.ok()) {
      const auto anchor = std::ranges::find(anchors_, id, &Anchor::id);
      if (id.index != 0 && anchor != anchors_.end()) {
        const std::string_view below = WithoutStartSeparator(std::string_view(real).substr(end));
        return JudgeName(below.empty() ? anchor->path : AddPathToFileName(anchor->path, below));
      }
      doubtful = doubtful || IsDoubtful(id, real);
    }
    if (end <= root) break;
    end = std::max(root, FolderPart(real.substr(0, end)).size());
  }
  if (!doubtful) return {};
  return Refused("a drive of this machine goes by another name here");
}

// A server may make the numbers up, and some systems tell none: then the volume of a protected
// folder under another name is refused as a whole.
bool PathGuard::IsDoubtful(const FileId& id, const std::string& real) {
  const std::string_view root = std::string_view(real).substr(0, RootSize(real));
  const bool second_name = std::ranges::any_of(anchors_, [&](const Anchor& each) {
    return id.volume != 0 && each.id.volume == id.volume &&
           !EqualsNoCase(each.path.substr(0, RootSize(each.path)), root);
  });
  return second_name && (id.index == 0 || IsOnServer(real));
}

bool PathGuard::IsOnServer(const std::string& path) {
  if (path.starts_with("\\\\")) return true;
  return std::ranges::any_of(files_.Drives(), [&](const Drive& drive) {
    return drive.kind == DriveKind::Network && EqualsNoCase({&drive.letter, 1}, path.substr(0, 1));
  });
}

Outcome PathGuard::Allow(const std::string& path, HeldWay* way, std::string* real_path) {
  Prepare();
  if (!IsExactPath(path)) {
    return Outcome::Failed(kBadFileName, "The path is not a plain one");
  }
  const std::size_t root = RootSize(path);
  if (root >= path.size()) {
    return RootRefused();
  }
  HeldWay held;
  for (std::size_t end = FindSeparator(path, root); end != path.npos;
       end = FindSeparator(path, end + 1)) {
    std::unique_ptr<FolderHold> hold;
    Outcome kept = files_.HoldFolder(path.substr(0, end), &hold);
    if (kept.code() == kFileNotFound || kept.code() == kPathNotFound) break;
    if (!kept.ok()) {
      Outcome told = Outcome::Failed(kept.code(), kept.description() + ": " + path.substr(0, end));
      return kept.reason() ? std::move(told).Because(*kept.reason()) : told;
    }
    held.push_back(std::move(hold));
  }
  const std::string real = RealPath(files_, path);
  if (Outcome judged = JudgeEverywhere(real); !judged.ok()) return judged;
  *way = std::move(held);
  if (real_path) *real_path = real;
  return {};
}

Outcome PathGuard::Open(const std::string& path, HeldWay* way, std::unique_ptr<OpenedItem>* item) {
  HeldWay held;
  std::unique_ptr<OpenedItem> opened;
  Outcome allowed = Allow(path, &held);
  if (allowed.ok()) allowed = files_.OpenItem(path, &opened);
  if (allowed.ok()) allowed = JudgeEverywhere(RealPath(files_, opened->true_path()));
  if (!allowed.ok()) return allowed;
  *way = std::move(held);
  *item = std::move(opened);
  return {};
}

}  // namespace scourwell
