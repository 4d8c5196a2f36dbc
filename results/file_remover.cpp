// SPDX-License-Identifier: MIT
#include "results/file_remover.h"

#include <algorithm>
#include <utility>

#include "results/tree_remover.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

bool IsComponent(std::string_view path) {
  return EndsWithNoCase(path, "DLL") || EndsWithNoCase(path, "OCX");
}

RemovalState StateOf(const Outcome& refusal) {
  const bool refused = refusal.code() == kPermissionDenied || refusal.code() == kPathFileAccess ||
                       refusal.code() == kBadFileName;
  return refused ? RemovalState::Refused : RemovalState::Failed;
}

}  // namespace

FileRemover::FileRemover(const Parts& parts)
    : parts_(parts),
      guard_(parts.files, parts.folders),
      components_(parts.registry, parts.files, parts.system, parts.folders),
      next_start_(
          {parts.files, parts.system, parts.registry, parts.code_pages, parts.os, parts.folders}) {}

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

RemovalResult FileRemover::DeleteBeside(const std::string& path) {
  HeldWay way;
  Outcome allowed = guard_.Allow(std::string(WithoutEndSeparators(FolderPart(path))), &way);
  if (allowed.code() != kPermissionDenied) return deleteSpyCFType(path);
  Outcome record = allowed;
  parts_.log.LogFailure(std::move(record).With("Spy Folder or File Name: ", path),
                        "deleteSpyCFType");
  return {RemovalState::Refused, std::move(allowed)};
}

Outcome FileRemover::DeleteFileAt(const std::string& path, RemovalResult* result) {
  HeldWay way;
  DirEntry entry;
  if (IsExactPath(path)) {
    // What cannot be asked is not gone: its medium or its server may be away.
    const Outcome there = parts_.files.Stat(path, &entry);
    if (IsAbsent(there) || (there.ok() && entry.IsFolder())) {
      result->state = RemovalState::Gone;
      if (!there.ok()) Forget(path, "deleteSpyCFType");
      return {};
    }
  }
  std::unique_ptr<OpenedItem> item;
  Outcome allowed = guard_.Open(path, &way, &item);
  // A link would lead the loader to a file that nobody asked to unregister. What the component's
  // own end makes of the place is judged anew.
  if (allowed.ok() && IsComponent(path) && !(item->attributes() & kLink)) {
    item.reset();
    Unregister(path);
    allowed = guard_.Open(path, &way, &item);
    if (IsAbsent(allowed)) return {};
  }
  if (allowed.ok() && (item->attributes() & kFolder)) {
    allowed = Outcome::Failed(kPathFileAccess, "It is not a file any more");
  }
  if (!allowed.ok()) {
    result->state = StateOf(allowed);
    return allowed;
  }
  Outcome erased = item->Erase();
  if (erased.ok()) {
    item.reset();
    Forget(path, "deleteSpyCFType");
    return {};
  }
  result->state = RemovalState::Failed;
  if (!parts_.settings.DeleteAfterReboot) return erased;
  if (Outcome left = next_start_.Leave(path, item.get()); !left.ok()) return left;
  result->state = RemovalState::PendingRestart;
  return erased;
}

// An earlier removal may have left it for the next start. What comes to lie there until then is no
// spy of that removal.
void FileRemover::Forget(const std::string& path, const char* method) {
  parts_.log.Trap(method, [&] { return next_start_.Forget(path); });
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
  std::unique_ptr<OpenedItem> item;
  Outcome allowed = guard_.Open(path, &way, &item);
  if (IsAbsent(allowed)) {
    result->state = RemovalState::Gone;
    Forget(path, "deleteSpyFolder");
    return {};
  }
  if (allowed.ok() && !(item->attributes() & kFolder)) {
    allowed = Outcome::Failed(kPathFileAccess, "It is not a folder any more");
  }
  if (!allowed.ok()) {
    result->state = StateOf(allowed);
    return allowed;
  }
  return Empty(path, std::move(item), result);
}

// On the NT family each item is left by itself, and a folder in which one stays after all of them.
// Windows 95, 98 and Me get each entry before the earlier ones, so a folder is noted before what
// lies in it. Both happen once it is known that all of it can wait.
Outcome FileRemover::Empty(const std::string& path, std::unique_ptr<OpenedItem> folder,
                           RemovalResult* result) {
  const bool nt = parts_.os.IsWinNT();
  std::vector<std::pair<std::string, std::unique_ptr<OpenedItem>>> later;
  std::string last;
  const auto leave = [&](const std::string& each, std::unique_ptr<OpenedItem> item,
                         const Outcome& why) {
    if (!parts_.settings.DeleteAfterReboot) return why;
    const bool full = why.code() == kPathFileAccess;
    if (nt && full && !IsAtOrBelow(last, each)) return why;  // by what could not be looked at
    last = each;
    if (nt && !full) return next_start_.Leave(each, item.get());
    later.emplace_back(each, std::move(item));
    return Outcome();
  };
  TreeRemover tree(parts_.files, parts_.pump, leave);
  Outcome removed = tree.Remove(path, std::move(folder));
  if (!nt) std::ranges::reverse(later);
  for (const auto& [each, item] : later) {
    if (!removed.ok()) break;
    removed = nt ? next_start_.LeaveFull(each, item.get()) : next_start_.Leave(each, item.get());
  }
  if (!removed.ok() || !tree.waiting().ok()) {
    result->state = removed.ok() ? RemovalState::PendingRestart : RemovalState::Failed;
    return removed.ok() ? tree.waiting() : std::move(removed);
  }
  Forget(path, "deleteSpyFolder");
  return {};
}

}  // namespace scourwell
