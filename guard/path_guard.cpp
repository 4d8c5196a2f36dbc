// SPDX-License-Identifier: MIT
#include "guard/path_guard.h"

#include <algorithm>

#include "guard/vital_files.h"
#include "machine/file_utils.h"
#include "machine/real_path.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr char kRefused[] = "It is protected: ";

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
}

bool PathGuard::IsOwn(const std::string& real) const {
  if (IsAtOrBelow(own_, real)) return true;
  if (!IsAtOrBelow(real, own_)) return false;
  if (!own_shared_) return true;
  // Beside the program lie others' files: its own are known by their names.
  std::string_view below = std::string_view(real).substr(own_.size());
  if (BeginsWithSeparator(below)) below.remove_prefix(1);
  return Holds(vital::kOwn, FirstPart(below));
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
      return Outcome::Failed(
          kPermissionDenied,
          std::string(kRefused) + "the folder " + folder.path +
              (folder.path.size() == real.size() ? " itself is never touched" : " lies in it"));
    }
    if (!IsAtOrBelow(real, folder.path)) continue;
    if (!innermost || innermost->path.size() < folder.path.size()) innermost = &folder;
  }
  if ((innermost && innermost->contents) || IsVital(real)) {
    return Outcome::Failed(kPermissionDenied, std::string(kRefused) + "Windows needs it");
  }
  return {};
}

Outcome PathGuard::Allow(const std::string& path, HeldWay* way, std::string* real_path) {
  Prepare();
  if (!IsExactPath(path)) {
    return Outcome::Failed(kBadFileName, "The path is not a plain one");
  }
  const std::size_t root = RootSize(path);
  if (root >= path.size()) {
    return Outcome::Failed(kPermissionDenied, std::string(kRefused) + "it is the root of a drive");
  }
  HeldWay held;
  for (std::size_t end = FindSeparator(path, root); end != path.npos;
       end = FindSeparator(path, end + 1)) {
    std::unique_ptr<FolderHold> hold;
    Outcome kept = files_.HoldFolder(path.substr(0, end), &hold);
    if (kept.code() == kFileNotFound || kept.code() == kPathNotFound) break;
    if (!kept.ok()) {
      return Outcome::Failed(kept.code(), kept.description() + ": " + path.substr(0, end));
    }
    held.push_back(std::move(hold));
  }
  const std::string real = RealPath(files_, path);
  if (IsOwn(real)) {
    return Outcome::Failed(kPermissionDenied,
                           std::string(kRefused) + "it belongs to Scourwell itself");
  }
  if (Outcome judged = Judge(real); !judged.ok()) return judged;
  *way = std::move(held);
  if (real_path) *real_path = real;
  return {};
}

}  // namespace scourwell
