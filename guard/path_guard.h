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
// folder. Folders are compared by the names on the disk, so that no other spelling slips through.
class PathGuard {
 public:
  PathGuard(Files& files, const SystemFolders& folders) : files_(files), folders_(folders) {}

  // Fails when the path may not be touched, with the reason; else fills *way. A link among the
  // folders above is refused; the item itself may be one. Missing folders end the way early: the
  // caller that makes them asks again. *real is the path with its names as they stand on the disk.
  Outcome Allow(const std::string& path, HeldWay* way, std::string* real = nullptr);

 private:
  struct ProtectedFolder {
    std::string path;  // by the names on the disk
    bool contents;     // everything in it, too
  };
  struct VitalFiles {
    std::string folder;
    std::span<const char* const> names;
  };

  void Prepare();
  Outcome Judge(const std::string& real) const;
  bool IsVital(const std::string& real) const;
  bool IsOwn(const std::string& real) const;

  Files& files_;
  const SystemFolders& folders_;
  bool prepared_ = false;
  std::vector<ProtectedFolder> protected_;
  std::vector<VitalFiles> vital_;
  std::string own_;
  bool own_shared_ = false;  // the program lies in a folder that others share
};

}  // namespace scourwell
