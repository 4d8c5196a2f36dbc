// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace scourwell {

// The order of a walk over folders and everything below them: root by root, depth first, in listing
// order, parents before what lies in them. Whoever walks lists each folder and says what to descend
// into. A walk can be copied, and a copy goes on from where it was made.
class FolderWalk {
 public:
  explicit FolderWalk(std::vector<std::string> roots) : roots_(std::move(roots)) {}

  // The next folder, or false at the end. A root is given as it was taken.
  bool Next();
  const std::string& folder() const { return folder_; }
  // Of the root that the folder lies below.
  std::size_t root() const { return next_root_ - 1; }
  // True for a root itself.
  bool at_root() const { return levels_.empty(); }

  // The subfolders of folder() to walk, by name. Without it none are.
  void Descend(std::vector<std::string> subfolders);

  // The walk that begins with folder(). To be asked before Descend.
  FolderWalk FromHere() const;

  // How much of the walk lies before folder(), from 0 to 1, as far as can be told without knowing
  // what lies below: a folder and each of its subfolders have equal shares.
  double done() const { return begin_; }

 private:
  struct Level {
    std::string path;
    std::vector<std::string> subfolders;
    std::size_t next = 0;
    double begin = 0;  // of the first subfolder
    double share = 0;  // of each
  };

  std::vector<std::string> roots_;
  std::size_t next_root_ = 0;
  std::vector<Level> levels_;
  std::string folder_;
  double begin_ = 0;
  double share_ = 0;
};

}  // namespace scourwell
