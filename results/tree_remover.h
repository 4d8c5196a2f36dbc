// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/pump.h"

namespace scourwell {

inline bool IsAbsent(const Outcome& asked) {
  return asked.code() == kFileNotFound || asked.code() == kPathNotFound;
}

// Deletes an opened folder with everything in it. Every entry is opened itself and deleted only
// when it truly lies below that folder: what a name leads to after a swap stays. Links go as links.
class TreeRemover {
 public:
  // What becomes of an item that cannot be deleted now, and why that is; success: it waits.
  using LeaveItem = std::function<Outcome(const std::string& path, std::unique_ptr<OpenedItem> item,
                                          const Outcome& why)>;

  TreeRemover(Files& files, Pump& pump, LeaveItem leave)
      : files_(files), pump_(pump), leave_(std::move(leave)) {}

  // Fails with the first item that neither went nor waits.
  Outcome Remove(const std::string& path, std::unique_ptr<OpenedItem> folder);
  // Why the first of those that wait could not be deleted; success when none does.
  const Outcome& waiting() const { return waiting_; }

 private:
  // A folder that was entered.
  struct Level {
    std::string path;
    std::unique_ptr<OpenedItem> folder;
    std::vector<DirEntry> rest;
  };

  void Enter(const std::string& path, std::unique_ptr<OpenedItem> folder);
  void Step();
  void Take(const std::string& path, std::unique_ptr<OpenedItem> item);
  void RemoveOne(const std::string& path, std::unique_ptr<OpenedItem> item);
  void Note(Outcome failure, const std::string& path);

  Files& files_;
  Pump& pump_;
  LeaveItem leave_;
  std::string root_;
  std::vector<Level> levels_;  // the innermost last
  Outcome failure_;
  Outcome waiting_;
};

}  // namespace scourwell
