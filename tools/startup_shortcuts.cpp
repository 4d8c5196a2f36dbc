// SPDX-License-Identifier: MIT

// Startup folders: a shortcut is kept as the file that it is.
#include <vector>

#include "machine/file_utils.h"
#include "machine/next_start.h"
#include "machine/op_sys_info.h"
#include "text/text.h"
#include "tools/program_of.h"
#include "tools/startup_locations.h"
#include "tools/win_ini_line.h"
#include "tools/win_ini_store.h"

namespace scourwell {
namespace {

constexpr char kLinkEnd[] = ".lnk";
constexpr std::uint64_t kLargestShortcut = 16u << 20;

// Anything else could lead out of its folder or key.
bool IsPlainName(const std::string& name) {
  return !name.empty() && !HoldsSeparator(name) && name.find_first_of("/:") == name.npos &&
         !IsDeviceName(name) && IsPlainPath("C:\\" + name + kLinkEnd);
}

Outcome EraseEvenReadOnly(Files& files, const std::string& path) {
  DirEntry entry;
  Outcome done = files.Stat(path, &entry);
  if (done.code() == kFileNotFound || done.code() == kPathNotFound) return {};
  if (done.ok() && entry.attributes & kReadOnly) {
    done = files.SetAttributes(path, entry.attributes & ~std::uint32_t{kReadOnly});
  }
  return done.ok() ? files.EraseFile(path) : done;
}

// Into another folder, under the name as it stands on the disk; by way of a copy where the folders
// lie on two volumes.
Outcome MoveExactly(Files& files, const std::string& from, std::string_view folder) {
  DirEntry entry;
  if (Outcome found = files.Stat(from, &entry); !found.ok()) return found;
  const std::string to = AddPathToFileName(folder, entry.name);
  if (files.Move(from, to).ok()) return {};
  std::string content;
  Outcome done = files.Read(from, kLargestShortcut, &content);
  if (done.ok()) done = files.Replace(to, content);
  if (!done.ok()) return done;
  // Times and attributes follow where that works; they are not worth a failure.
  static_cast<void>(files.SetTimes(to, entry.times()));
  static_cast<void>(files.SetAttributes(to, entry.attributes));
  return EraseEvenReadOnly(files, from);
}

bool SameContent(Files& files, const std::string& a, const std::string& b) {
  std::string first;
  std::string second;
  return files.Read(a, kLargestShortcut, &first).ok() &&
         files.Read(b, kLargestShortcut, &second).ok() && first == second;
}

}  // namespace

Outcome StartupLocations::ListShortcuts(const StartupLocation& place, const Visit& visit) const {
  const std::string& folder = needs_.folders.Special(place.folder);
  if (folder.empty()) return {};
  std::vector<std::string> names;
  Outcome listed = needs_.files.List(AddPathToFileName(folder, "*.*"), [&](const DirEntry& entry) {
    const bool link = entry.name.size() > 4 && EndsWithNoCase(entry.name, kLinkEnd);
    if (link && !entry.IsFolder()) names.push_back(entry.name.substr(0, entry.name.size() - 4));
    return true;
  });
  for (const std::string& name : names) {
    const std::string path = AddPathToFileName(folder, name + kLinkEnd);
    std::string target;
    std::string arguments;
    // A damaged shortcut has no command, but it is there.
    static_cast<void>(needs_.shell.ShortcutTarget(path, &target));
    static_cast<void>(needs_.shell.ShortcutArguments(path, &arguments));
    visit({name, AsProgram(target) + (arguments.empty() ? "" : " ") + arguments});
  }
  return listed.code() == kPathNotFound ? Outcome() : listed;
}

// A run that ended in between left two files that are the same.
bool StartupLocations::IsAnotherShortcut(const StartupLocation& place,
                                         const PlaceEntry& found) const {
  const std::string kept = KeptPath(place, found.name);
  return FileExists(needs_.files, kept) &&
         !SameContent(needs_.files, ShortcutPath(place, found.name), kept);
}

Outcome StartupLocations::KeepShortcut(const StartupLocation& place,
                                       const PlaceEntry& entry) const {
  const std::string path = ShortcutPath(place, entry.name);
  if (path.empty()) return NoSuchEntry();
  const std::string kept = KeptPath(place, entry.name);
  if (FileExists(needs_.files, kept)) {
    if (SameContent(needs_.files, path, kept)) return {};
    return Outcome::Failed(kFileExists, "Another shortcut of this name is disabled already");
  }
  return MakeSideFolder(needs_.files, needs_.folders,
                        std::string(FileNamePart(FolderPart(kept))).c_str());
}

Outcome StartupLocations::TakeOutShortcut(const StartupLocation& place,
                                          const PlaceEntry& entry) const {
  const std::string path = ShortcutPath(place, entry.name);
  if (path.empty()) return NoSuchEntry();
  const std::string kept = KeptPath(place, entry.name);
  DirEntry there;
  const Outcome found = needs_.files.Stat(path, &there);
  if (found.code() == kFileNotFound || found.code() == kPathNotFound) return {};
  if (!found.ok()) return found;  // what cannot be asked is not gone
  if (FileExists(needs_.files, kept)) return EraseEvenReadOnly(needs_.files, path);
  return MoveExactly(needs_.files, path, FolderPart(kept));
}

Outcome StartupLocations::DeleteShortcut(const StartupLocation& place,
                                         const PlaceEntry& entry) const {
  const std::string path = ShortcutPath(place, entry.name);
  return path.empty() ? NoSuchEntry() : EraseEvenReadOnly(needs_.files, path);
}

Outcome StartupLocations::PutBackShortcut(const StartupLocation& place,
                                          const PlaceEntry& entry) const {
  const std::string path = ShortcutPath(place, entry.name);
  if (path.empty()) return NoSuchEntry();
  const std::string kept = KeptPath(place, entry.name);
  const bool whole = FileExists(needs_.files, kept);
  if (FileExists(needs_.files, path)) {
    return whole && SameContent(needs_.files, path, kept) ? Outcome() : EntryTaken();
  }
  // A removal may have left an earlier one for the next start.
  const COpSysInfo os(needs_.system);
  NextStart next_start(
      {needs_.files, needs_.system, needs_.registry, needs_.code_pages, os, needs_.folders});
  if (Outcome withdrawn = next_start.Withdraw(path); !withdrawn.ok()) return withdrawn;
  if (whole) return MoveExactly(needs_.files, kept, FolderPart(path));
  const ProgramOf program = FindStarter(entry.command, needs_.files, needs_.folders, needs_.system);
  if (program.path.empty()) return NoSuchEntry();
  return needs_.shell.CreateShortcut(path, program.path, program.arguments);
}

Outcome StartupLocations::ForgetShortcut(const StartupLocation& place,
                                         const PlaceEntry& entry) const {
  const std::string kept = KeptPath(place, entry.name);
  return kept.empty() ? Outcome() : EraseEvenReadOnly(needs_.files, kept);
}

std::string StartupLocations::ShortcutPath(const StartupLocation& place,
                                           const std::string& name) const {
  const std::string& folder = needs_.folders.Special(place.folder);
  if (place.kind != LocationKind::Shortcut || folder.empty() || !IsPlainName(name)) return {};
  return AddPathToFileName(folder, name + kLinkEnd);
}

// Two users may have shortcuts of one name. One that was kept when all had one folder stays there.
std::string StartupLocations::KeptPath(const StartupLocation& place,
                                       const std::string& name) const {
  if (!IsPlainName(name)) return {};
  const std::string side = SideFolder(needs_.folders);
  std::string shared = AddPathToFileName(AddPathToFileName(side, place.path), name + kLinkEnd);
  if (user_.empty() || !IsOfUser(place)) return shared;
  std::string own = AddPathToFileName(AddPathToFileName(side, user_), name + kLinkEnd);
  return !FileExists(needs_.files, own) && FileExists(needs_.files, shared) ? shared : own;
}

}  // namespace scourwell
