// SPDX-License-Identifier: MIT
#include "results/file_remover.h"

#include <algorithm>
#include <utility>

#include "machine/file_utils.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr std::uint32_t kInTheWay = kReadOnly | kHidden | kSystem;

bool IsComponent(std::string_view path) {
  return EndsWithNoCase(path, "DLL") || EndsWithNoCase(path, "OCX");
}

bool IsAbsent(const Outcome& asked) {
  return asked.code() == kFileNotFound || asked.code() == kPathNotFound;
}

RemovalState StateOf(const Outcome& refusal) {
  const bool refused = refusal.code() == kPermissionDenied || refusal.code() == kPathFileAccess ||
                       refusal.code() == kBadFileName;
  return refused ? RemovalState::Refused : RemovalState::Failed;
}

}  // namespace

// What is left of a folder to be deleted: the folders entered, the innermost last.
struct FileRemover::Tree {
  struct Level {
    std::string path;
    std::uint32_t attributes;
    std::vector<DirEntry> rest;
    std::unique_ptr<FolderHold> hold;
  };
  std::vector<Level> levels;
  Outcome failure;  // the first one
  std::string failed_path;
  std::vector<std::string> in_use;  // for the next start, in the order in which they must go
  bool all_can_wait = true;

  void Note(Outcome outcome, const std::string& path, bool can_wait) {
    all_can_wait = all_can_wait && can_wait;
    if (can_wait) in_use.push_back(path);
    if (!failure.ok()) return;
    failure = std::move(outcome);
    failed_path = path;
  }
};

// A blank at the end belongs to the name: without it, the path may be another file's.
RemovalResult FileRemover::deleteSpyCFType(const std::string& named) {
  RemovalResult result;
  const std::string path = named.substr(std::min(named.find_first_not_of(' '), named.size()));
  const Outcome deleted = parts_.log.TrapOutcome("deleteSpyCFType", [&] {
    Outcome outcome = DeleteFileAt(path, &result);
    return outcome.ok() ? Outcome() : std::move(outcome).With("Spy Folder or File Name: ", path);
  });
  if (!deleted.ok() && result.done()) result.state = RemovalState::Failed;
  result.why = deleted;
  return result;
}

Outcome FileRemover::DeleteFileAt(const std::string& path, RemovalResult* result) {
  HeldWay way;
  DirEntry entry;
  if (IsExactPath(path)) {
    // What cannot be asked is not gone: its medium or its server may be away.
    const Outcome there = parts_.files.Stat(path, &entry);
    if (IsAbsent(there) || (there.ok() && entry.IsFolder())) {
      result->state = RemovalState::Gone;
      return {};
    }
  }
  Outcome allowed = guard_.Allow(path, &way);
  if (allowed.ok()) allowed = parts_.files.Stat(path, &entry);
  if (!allowed.ok()) {
    result->state = StateOf(allowed);
    return allowed;
  }
  const bool scheduled =
      MovesAtReboot() &&
      parts_.system.MoveAtReboot(path, parts_.system.TemporaryFolder() + "\\2.txt").ok();
  // A link would lead the loader to a file that nobody asked to unregister.
  if (IsComponent(path) && !entry.IsLink()) Unregister(path);
  Outcome erased = Erase(path, entry.attributes);
  if (erased.ok()) return {};
  const bool pending =
      scheduled || (parts_.settings.DeleteAfterReboot && !parts_.os.IsWinNT() &&
                    DestroyOnReboot(path, parts_.files, parts_.system, parts_.code_pages).ok());
  result->state = pending ? RemovalState::PendingRestart : RemovalState::Failed;
  return erased;
}

Outcome FileRemover::Erase(const std::string& path, std::uint32_t attributes) {
  if (attributes & kInTheWay) {
    if (Outcome cleared = parts_.files.SetAttributes(path, 0); !cleared.ok()) return cleared;
  }
  Outcome erased = parts_.files.EraseFile(path);
  if (!erased.ok() && (attributes & kInTheWay)) {
    static_cast<void>(parts_.files.SetAttributes(path, attributes));
  }
  return erased;
}

// A component that cannot be unregistered is deleted all the same; one without the entry point has
// nothing to undo. What no class names was never registered: its code would run for nothing.
void FileRemover::Unregister(const std::string& path) {
  if (!components_.Name(path)) return;
  if (!parts_.os.IsWinNT()) {
    parts_.log.Trap("deleteSpyCFType", [&] {
      return parts_.shell.Start(AddPathToFileName(parts_.folders.system, "regsvr32.exe"),
                                "/U /s \"" + path + "\"");
    });
    return;
  }
  Outcome called = parts_.shell.CallExport(path, "DllUnregisterServer");
  if (!called.ok() && called.code() != kInvalidCall && called.code() != kFileNotFound) {
    parts_.log.LogFailure(std::move(called).With("Unregistering: ", path), "deleteSpyCFType");
  }
}

bool FileRemover::MovesAtReboot() const {
  return parts_.settings.DeleteAfterReboot && parts_.os.IsWinNT();
}

// Windows 95, 98 and Me get each entry before the earlier ones.
bool FileRemover::Schedule(std::vector<std::string> paths) {
  if (!parts_.settings.DeleteAfterReboot) return false;
  if (!parts_.os.IsWinNT()) std::reverse(paths.begin(), paths.end());
  for (const std::string& path : paths) {
    if (!DeleteAtNextStart(path, parts_.files, parts_.system, parts_.code_pages, parts_.os).ok()) {
      return false;
    }
  }
  return true;
}

RemovalResult FileRemover::deleteSpyFolder(const std::string& path) {
  RemovalResult result;
  const Outcome deleted = parts_.log.TrapOutcome("deleteSpyFolder", [&] {
    Outcome outcome = DeleteFolderAt(path, &result);
    return outcome.ok() ? Outcome() : std::move(outcome).With("spyFolderName: ", path);
  });
  if (!deleted.ok() && result.done()) result.state = RemovalState::Failed;
  result.why = deleted;
  return result;
}

Outcome FileRemover::DeleteFolderAt(const std::string& path, RemovalResult* result) {
  HeldWay way;
  DirEntry entry;
  Outcome allowed = guard_.Allow(path, &way);
  if (allowed.ok()) {
    allowed = parts_.files.Stat(path, &entry);
    if (IsAbsent(allowed)) {
      result->state = RemovalState::Gone;
      return {};
    }
    if (allowed.ok() && !entry.IsFolder()) {
      allowed = Outcome::Failed(kPathFileAccess, "It is not a folder any more");
    }
  }
  if (!allowed.ok()) {
    result->state = StateOf(allowed);
    return allowed;
  }
  Tree tree;
  if (entry.IsLink() || !Enter(path, entry.attributes, &tree)) {
    RemoveOne(path, entry.attributes, &tree);
  }
  while (!tree.levels.empty()) {
    if (!parts_.pump.Next()) {
      tree.levels.clear();
      tree.Note(Outcome::Failed(kPathFileAccess, "The removal was stopped"), path, false);
      break;
    }
    Tree::Level& level = tree.levels.back();
    if (level.rest.empty()) {
      Leave(&tree);
      continue;
    }
    const DirEntry next = std::move(level.rest.back());
    level.rest.pop_back();
    RemoveEntry(next, &tree);
  }
  if (tree.failure.ok()) return {};
  const bool waits = tree.all_can_wait && Schedule(std::move(tree.in_use));
  result->state = waits ? RemovalState::PendingRestart : RemovalState::Failed;
  return std::move(tree.failure).With("Item: ", tree.failed_path);
}

// False when the folder is a link by now, which is then removed as such.
bool FileRemover::Enter(const std::string& path, std::uint32_t attributes, Tree* tree) {
  Tree::Level level = {path, attributes, {}, nullptr};
  Outcome entered = parts_.files.HoldFolder(path, &level.hold);
  if (entered.code() == kPathFileAccess) return false;
  if (entered.ok()) {
    entered = parts_.files.List(AddPathToFileName(path, "*.*"), [&](const DirEntry& entry) {
      level.rest.push_back(entry);
      return true;
    });
  }
  // A folder that cannot be listed may still be empty: its removal tells.
  tree->levels.push_back(std::move(level));
  return true;
}

void FileRemover::RemoveEntry(const DirEntry& entry, Tree* tree) {
  const std::string folder = tree->levels.back().path;
  const std::string path = AddPathToFileName(folder, entry.name);
  if (entry.IsFolder() && !entry.IsLink() && Enter(path, entry.attributes, tree)) return;
  RemoveOne(path, entry.attributes, tree);
}

// A file, a link, or a folder that turned into a link.
void FileRemover::RemoveOne(const std::string& path, std::uint32_t attributes, Tree* tree) {
  Outcome removed;
  if (attributes & kFolder) {
    removed = parts_.files.RemoveFolder(path);
  } else {
    removed = Erase(path, attributes);
  }
  if (removed.ok() || removed.code() == kFileNotFound) return;
  tree->Note(std::move(removed), path, !(attributes & kFolder));
}

void FileRemover::Leave(Tree* tree) {
  const std::string path = tree->levels.back().path;
  const std::uint32_t attributes = tree->levels.back().attributes;
  tree->levels.pop_back();  // and the hold with it
  if (attributes & kInTheWay) static_cast<void>(parts_.files.SetAttributes(path, 0));
  Outcome removed = parts_.files.RemoveFolder(path);
  if (removed.ok() || removed.code() == kFileNotFound) return;
  if (attributes & kInTheWay) static_cast<void>(parts_.files.SetAttributes(path, attributes));
  // What is scheduled below it goes first at the next start, the folder after it.
  tree->Note(std::move(removed), path, true);
}

}  // namespace scourwell
