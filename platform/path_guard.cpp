#include "platform/path_guard.h"

#include <algorithm>

#include "platform/file_utils.h"
#include "platform/text.h"

namespace scourwell {
namespace {

constexpr char kRefused[] = "It is protected: ";

// Windows does not start, or cannot be used, without these.
struct VitalFile {
  std::string SystemFolders::*folder;  // null: the root of the drive that holds Windows
  const char* name;
};
constexpr VitalFile kVitalFiles[] = {
    {nullptr, "boot.ini"},
    {nullptr, "bootmgr"},
    {nullptr, "command.com"},
    {nullptr, "io.sys"},
    {nullptr, "msdos.sys"},
    {nullptr, "ntdetect.com"},
    {nullptr, "ntldr"},
    {&SystemFolders::windows, "explorer.exe"},
    {&SystemFolders::windows, "regedit.exe"},
    {&SystemFolders::windows, "system.dat"},
    {&SystemFolders::windows, "system.ini"},
    {&SystemFolders::windows, "user.dat"},
    {&SystemFolders::windows, "win.com"},
    {&SystemFolders::windows, "win.ini"},
    {&SystemFolders::system, "advapi32.dll"},
    {&SystemFolders::system, "comctl32.dll"},
    {&SystemFolders::system, "csrss.exe"},
    {&SystemFolders::system, "gdi32.dll"},
    {&SystemFolders::system, "hal.dll"},
    {&SystemFolders::system, "kernel32.dll"},
    {&SystemFolders::system, "krnl386.exe"},
    {&SystemFolders::system, "lsass.exe"},
    {&SystemFolders::system, "msvcrt.dll"},
    {&SystemFolders::system, "ntdll.dll"},
    {&SystemFolders::system, "ntoskrnl.exe"},
    {&SystemFolders::system, "ole32.dll"},
    {&SystemFolders::system, "services.exe"},
    {&SystemFolders::system, "shell32.dll"},
    {&SystemFolders::system, "smss.exe"},
    {&SystemFolders::system, "svchost.exe"},
    {&SystemFolders::system, "user32.dll"},
    {&SystemFolders::system, "userinit.exe"},
    {&SystemFolders::system, "winlogon.exe"},
};

std::string_view WithoutSlash(std::string_view path) {
  while (path.size() > 3 && path.ends_with('\\')) path.remove_suffix(1);
  return path;
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
  const auto protect = [&](std::string_view folder) {
    if (folder.size() >= 3) protected_.push_back(RealPath(std::string(WithoutSlash(folder))));
  };
  for (const std::string* folder :
       {&folders_.windows, &folders_.system, &folders_.app_data, &folders_.temporary,
        &folders_.program_files, &folders_.common_files}) {
    protect(*folder);
  }
  for (const std::string& folder : folders_.special) protect(folder);
  own_ = RealPath(std::string(WithoutSlash(folders_.application)));
  own_shared_ = own_.size() <= 3 || !Judge(own_).ok();
  for (const VitalFile& file : kVitalFiles) {
    const std::string folder = file.folder ? folders_.*file.folder : folders_.windows.substr(0, 3);
    vital_.push_back(RealPath(AddPathToFileName(folder, file.name)));
  }
}

bool PathGuard::IsOwn(const std::string& real) const {
  if (IsAtOrBelow(own_, real)) return true;
  return !own_shared_ && IsAtOrBelow(real, own_);
}

Outcome PathGuard::Judge(const std::string& real) const {
  for (const std::string& folder : protected_) {
    if (IsAtOrBelow(folder, real)) {
      return Outcome::Failed(
          kPermissionDenied,
          std::string(kRefused) + "the folder " + folder +
              (folder.size() == real.size() ? " itself is never touched" : " lies in it"));
    }
  }
  for (const std::string& file : vital_) {
    if (EqualsNoCase(file, real)) {
      return Outcome::Failed(kPermissionDenied, std::string(kRefused) + "Windows needs this file");
    }
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
