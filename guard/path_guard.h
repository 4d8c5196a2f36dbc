// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "machine/system_folders.h"
#include "platform/files.h"

namespace scourwell {

// The folders above an item, from below the root down to the last one, each kept in its place. As
// long as it lives, the item's path cannot be led elsewhere.
using HeldWay = std::vector<std::unique_ptr<FolderHold>>;

// Decides what may be deleted or replaced at all. Refused are: paths that are not plain; drive
// roots; the folders of the system, of programs and of the user, and whatever holds one of them;
// the folders and files without which Windows does not start; and everything in Scourwell's own
// folder. Folders are compared by the names on the disk and by the numbers that the system gives
// them, so that neither another spelling nor another way to them slips through: a second letter of
// the drive, a share of this machine.
class PathGuard {
 public:
  PathGuard(Files& files, const SystemFolders& folders) : files_(files), folders_(folders) {}

  // Fails when the path may not be touched, with the reason; else fills *way. A link among the
  // folders above is refused; the item itself may be one. Missing folders end the way early: the
  // caller that makes them asks again. *real is the path with its names as they stand on the disk.
  Outcome Allow(const std::string& path, HeldWay* way, std::string* real = nullptr);
  // The same, and opens the item itself, which is judged once more by where it really lies.
  Outcome Open(const std::string& path, HeldWay* way, std::unique_ptr<OpenedItem>* item);

 private:
  // A folder that is known by its number, too: a protected one, or one on the way to it.
  struct Anchor {
    FileId id;
    std::string path;
  };
  struct ProtectedFolder {
    std::string path;  // by the names on the disk
    bool contents;     // everything in it, too
  };
  struct VitalFiles {
    std::string folder;
    std::span<const char* const> names;
  };

  void Prepare();
  void AddAnchors(const std::string& folder);
  Outcome JudgeEverywhere(const std::string& real);
  Outcome JudgeByNumbers(const std::string& real);
  Outcome JudgeName(const std::string& real) const;
  Outcome Judge(const std::string& real) const;
  bool IsDoubtful(const FileId& id, const std::string& real);
  bool IsOnServer(const std::string& path);
  bool IsVital(const std::string& real) const;
  bool IsOwn(const std::string& real) const;

  Files& files_;
  const SystemFolders& folders_;
  bool prepared_ = false;
  std::vector<ProtectedFolder> protected_;
  std::vector<VitalFiles> vital_;
  std::vector<Anchor> anchors_;
  std::string own_;
  bool own_shared_ = false;  // the program lies in a folder that others share
};

}  // namespace scourwell
