// SPDX-License-Identifier: MIT
#include "machine/next_start.h"

#include <algorithm>
#include <utility>

#include "text/caption_ids.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr std::uint64_t kWinInitLimit = 1 << 20;
constexpr unsigned kMostAside = 10'000;
constexpr char kSessionManager[] = "SYSTEM\\CurrentControlSet\\Control\\Session Manager";
// The second one takes what comes when the first is full, or since it is there.
constexpr const char* kMoves[] = {"PendingFileRenameOperations", "PendingFileRenameOperations2"};

// Every drive that is there before anybody has logged on.
bool IsFixed(Files& files, std::string_view path) {
  return std::ranges::any_of(files.Drives(), [&](const Drive& drive) {
    return drive.kind == DriveKind::Fixed && EqualsNoCase({&drive.letter, 1}, path.substr(0, 1)) &&
           path.substr(1, 1) == ":";
  });
}

}  // namespace

Outcome NextStart::Leave(const std::string& path, OpenedItem* item) {
  if (!IsFixed(parts_.files, path) || !IsFixed(parts_.files, item->true_path())) {
    return Outcome::Failed(kPathFileAccess,
                           "It is in use, and its drive may not be there at the next start")
        .Because(Caption::ReasonInUse);
  }
  return parts_.os.IsWinNT() ? NoteOnNt(path, item) : DestroyOnReboot(path);
}

Outcome NextStart::NoteOnNt(const std::string& path, OpenedItem* item) {
  if (IsNoted(path) && parts_.files.IsGuarded(std::string(FolderPart(path)))) return {};
  std::string aside;
  Outcome moved = MoveAside(path, item, &aside);
  if (moved.ok()) {
    Outcome noted = parts_.system.DeleteAtReboot(AddPathToFileName(aside, FileNamePart(path)));
    if (noted.ok()) noted = parts_.system.DeleteAtReboot(aside);
    if (noted.ok()) return {};
    static_cast<void>(item->MoveTo(path));
    static_cast<void>(Withdraw(AddPathToFileName(aside, FileNamePart(path))));
    static_cast<void>(parts_.files.RemoveFolder(aside));
    return noted;
  }
  // Only others' grip ends with the start; what refuses by its rights will refuse then, too. An
  // empty folder could become a link itself.
  if ((item->attributes() & kFolder) || !item->IsHeld()) return moved;
  // A second letter of the drive may not be there yet.
  const std::string place = AddPathToFileName(FolderPart(item->true_path()), FileNamePart(path));
  if (!IsWayGuarded(place)) {
    return Outcome::Failed(kPermissionDenied,
                           "It is in use, and others may put something else in its place")
        .Because(Caption::ReasonInUse);
  }
  return parts_.system.DeleteAtReboot(place);
}

// Where users could empty it, it may be a link by then.
Outcome NextStart::LeaveFull(const std::string& path, OpenedItem* folder) {
  const std::string place = AddPathToFileName(FolderPart(folder->true_path()), FileNamePart(path));
  if (!IsFixed(parts_.files, place) || !parts_.files.IsGuarded(place) || !IsWayGuarded(place)) {
    return Outcome::Failed(kPathFileAccess, "What is in use in it keeps it in its place")
        .Because(Caption::ReasonInUse);
  }
  return IsNoted(place) ? Outcome() : parts_.system.DeleteAtReboot(place);
}

// The folder of Windows is closed to users on every system; a root may be open.
std::string NextStart::Base(const std::string& true_path) const {
  const std::string root = true_path.substr(0, RootSize(true_path));
  return StartsWithNoCase(parts_.folders.windows, root) ? parts_.folders.windows : root;
}

Outcome NextStart::MoveAside(const std::string& path, OpenedItem* item, std::string* folder) {
  const std::string base = Base(item->true_path());
  if (!EqualsNoCase(base, parts_.folders.windows) && !parts_.files.IsGuarded(base)) {
    return Outcome::Failed(kPermissionDenied,
                           "It is in use, and no place on its drive is closed to others")
        .Because(Caption::ReasonInUse);
  }
  Outcome made = Outcome::Failed(kFileExists);
  for (unsigned number = 0; number < kMostAside && made.code() == kFileExists; ++number) {
    *folder = AddPathToFileName(base, "~scw" + Padded(number, 4) + ".del");
    made = parts_.files.CreateGuardedFolder(*folder);
  }
  if (!made.ok()) return made;
  Outcome moved = item->MoveTo(AddPathToFileName(*folder, FileNamePart(path)));
  if (!moved.ok()) static_cast<void>(parts_.files.RemoveFolder(*folder));
  return moved;
}

bool NextStart::IsWayGuarded(const std::string& path) {
  std::string folder = path;
  do {
    folder = folder.substr(0, std::max(RootSize(folder), FolderPart(folder).size()));
    if (!parts_.files.IsGuarded(folder)) return false;
  } while (folder.size() > RootSize(folder));
  return true;
}

bool NextStart::IsNoted(const std::string& path) {
  bool noted = false;
  for (const char* name : kMoves) {
    RegValue list;
    parts_.registry.QueryValue(RootKey::LocalMachine, kSessionManager, name, &list);
    WithoutMoves(list.data, [&](const std::string& each) {
      noted = noted || EqualsNoCase(each, path);
      return false;
    });
  }
  return noted;
}

Outcome NextStart::Withdraw(const std::string& path) {
  const std::string short_path = parts_.os.IsWinNT() ? std::string() : parts_.files.ShortPath(path);
  const auto take_out = [&](const std::string& each) {
    return IsAtOrBelow(path, each) || IsAtOrBelow(short_path, each);
  };
  return parts_.os.IsWinNT() ? TakeOutOfRegistry(take_out) : TakeOutOfFile(take_out);
}

Outcome NextStart::Forget(const std::string& path) {
  const auto take_out = [&](const std::string& each) { return IsAtOrBelow(each, path); };
  return parts_.os.IsWinNT() ? TakeOutOfRegistry(take_out) : TakeOutOfFile(take_out);
}

// Others write there, too: what changed in between is read anew.
Outcome NextStart::TakeOutOfRegistry(const TakeOut& take_out) {
  constexpr int kMostTries = 3;
  for (const char* name : kMoves) {
    for (int i = 0; i < kMostTries; ++i) {
      RegValue list;
      RegValue again;
      const auto read = [&](RegValue* value) {
        return parts_.registry.QueryValue(RootKey::LocalMachine, kSessionManager, name, value);
      };
      if (read(&list) != kRegOk || list.type != kRegMultiText) break;
      const std::string kept = WithoutMoves(list.data, take_out);
      if (kept == list.data) break;
      if (read(&again) != kRegOk || again.data != list.data) continue;
      list.data = kept;
      const RegStatus status =
          kept.empty()
              ? parts_.registry.DeleteValue(RootKey::LocalMachine, kSessionManager, name)
              : parts_.registry.SetValue(RootKey::LocalMachine, kSessionManager, name, list);
      if (status != kRegOk) return Outcome::OfRegistry(status);
      break;
    }
  }
  return {};
}

std::string NextStart::WinInitPath() {
  return parts_.system.Environment("WinDir") + "\\WinInit.ini";
}

// Nothing where there is no such file.
Outcome NextStart::ReadWinInit(std::string* content) {
  DirEntry entry;
  Outcome present = parts_.files.Stat(WinInitPath(), &entry);
  if (present.code() == kFileNotFound) return {};
  return present.ok() ? parts_.files.Read(WinInitPath(), kWinInitLimit, content)
                      : std::move(present);
}

// Entries have 8.3 names, which only an item that is there can be asked for. One whose item is gone
// could only hit a new one of that name.
Outcome NextStart::TakeOutOfFile(const TakeOut& take_out) {
  std::string content;
  if (Outcome read = ReadWinInit(&content); !read.ok() || content.empty()) return read;
  const std::string kept = WithoutRenameEntries(content, [&](const std::string& bytes) {
    std::string each;
    if (!parts_.code_pages.Decode(parts_.code_pages.System(), bytes, &each).ok()) return false;
    DirEntry entry;
    return take_out(each) ||
           (IsAbsolutePath(each) && parts_.files.Stat(each, &entry).code() == kFileNotFound);
  });
  return kept == content ? Outcome() : parts_.files.Replace(WinInitPath(), kept);
}

Outcome NextStart::DestroyOnReboot(const std::string& path) {
  DirEntry entry;
  if (Outcome found = parts_.files.Stat(path, &entry); !found.ok()) return found;
  const std::string short_path(TrimBlanks(TrimNull(parts_.files.ShortPath(path))));
  if (short_path.empty()) return Outcome::Failed(kPathNotFound);
  const std::optional<std::string> bytes = parts_.code_pages.Encode(short_path);
  if (!bytes) return Outcome::Failed(kBadFileName);
  std::string content;
  if (Outcome read = ReadWinInit(&content); !read.ok()) return read;
  const std::string once = WithoutRenameEntries(
      content, [&](const std::string& each) { return EqualsNoCase(each, *bytes); });
  return parts_.files.Replace(
      WinInitPath(), WithRenameEntry(once, (entry.IsFolder() ? "DIRNUL=" : "NUL=") + *bytes));
}

}  // namespace scourwell
