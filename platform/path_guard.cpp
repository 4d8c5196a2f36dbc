#include "platform/path_guard.h"

#include <algorithm>

#include "platform/file_utils.h"
#include "platform/text.h"
#include "platform/vital_files.h"

namespace scourwell {
namespace {

constexpr char kRefused[] = "It is protected: ";

std::string_view WithoutSlash(std::string_view path) {
  while (path.size() > 3 && path.ends_with('\\')) path.remove_suffix(1);
  return path;
}

bool Holds(std::span<const char* const> names, std::string_view name) {
  return std::ranges::any_of(names, [&](const char* each) { return EqualsNoCase(each, name); });
}

// Where the root of a path ends: behind "X:\" or "\\server\share\"; npos for a bare share.
std::size_t RootSize(std::string_view path) {
  if (!path.starts_with("\\\\")) return 3;
  const std::size_t share = path.find('\\', 2);
  const std::size_t end = share == path.npos ? path.npos : path.find('\\', share + 1);
  return end == path.npos ? path.npos : end + 1;
}

}  // namespace

bool IsAtOrBelow(std::string_view inner, std::string_view outer) {
  if (outer.empty() || inner.size() < outer.size()) return false;
  if (!EqualsNoCase(inner.substr(0, outer.size()), outer)) return false;
  return inner.size() == outer.size() || inner[outer.size()] == '\\' || outer.ends_with('\\');
}

// A part that does not exist is taken as it is spelled.
std::string PathGuard::RealPath(const std::string& path) {
  const std::size_t root = RootSize(path);
  if (root >= path.size()) return path;
  std::string real = path.substr(0, root);
  for (std::size_t at = root; at < path.size();) {
    const std::size_t end = std::min(path.find('\\', at), path.size());
    DirEntry entry;
    const std::string prefix = path.substr(0, end);
    const bool known = files_.Stat(prefix, &entry).ok() && !IsLossy(entry.name);
    if (at > root) real += '\\';
    real += known ? entry.name : path.substr(at, end - at);
    at = end + 1;
  }
  return real;
}

void PathGuard::Prepare() {
  if (prepared_) return;
  prepared_ = true;
  const auto protect = [&](std::string_view folder, bool contents = false) {
    if (folder.size() < 3) return;
    protected_.push_back({RealPath(std::string(WithoutSlash(folder))), contents});
  };
  for (const std::string* folder :
       {&folders_.windows, &folders_.system, &folders_.app_data, &folders_.temporary,
        &folders_.program_files, &folders_.common_files}) {
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
    vital_.push_back({RealPath(std::string(WithoutSlash(folder))), files.names});
  }
  own_ = RealPath(std::string(WithoutSlash(folders_.application)));
  own_shared_ = own_.size() <= 3 || !Judge(own_).ok();
}

bool PathGuard::IsOwn(const std::string& real) const {
  if (IsAtOrBelow(own_, real)) return true;
  return !own_shared_ && IsAtOrBelow(real, own_);
}

bool PathGuard::IsVital(const std::string& real) const {
  const std::size_t root = RootSize(real);
  const std::string_view below = std::string_view(real).substr(std::min(root, real.size()));
  const std::string_view name = FileNamePart(real);
  if (below == name && Holds(vital::kInRoot, name)) return true;
  if (Holds(vital::kRootFolders, below.substr(0, below.find('\\')))) return true;
  if (Holds(vital::kAnywhere, name)) return true;
  const std::string_view folder = WithoutSlash(FolderPart(real));
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
  if (!IsPlainPath(path) || path.size() > kLongestPath || path.ends_with('\\')) {
    return Outcome::Failed(kBadFileName, "The path is not a plain one");
  }
  const std::size_t root = RootSize(path);
  if (root >= path.size()) {
    return Outcome::Failed(kPermissionDenied, std::string(kRefused) + "it is the root of a drive");
  }
  HeldWay held;
  for (std::size_t end = path.find('\\', root); end != path.npos; end = path.find('\\', end + 1)) {
    std::unique_ptr<FolderHold> hold;
    Outcome kept = files_.HoldFolder(path.substr(0, end), &hold);
    if (kept.number() == kFileNotFound || kept.number() == kPathNotFound) break;
    if (!kept.ok()) {
      return Outcome::Failed(kept.number(), kept.description() + ": " + path.substr(0, end));
    }
    held.push_back(std::move(hold));
  }
  const std::string real = RealPath(path);
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
