// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "text/captions.h"

namespace scourwell {

// What a scan covers: the nodes of the scan scope tree with their ticks. Nodes are numbered from
// 1 in the order of their creation; the numbers of the fixed ones never change.
class ScanScope {
 public:
  enum : std::size_t {
    kMyComputer = 1,
    kScanMemory = 2,
    kScanRegistry = 3,
    kScanCookie = 4,
    kScanDrives = 5,
    kQuickScan = 6,
    kDeepScan = 7,
    kFirstDrive = 8,
  };

  struct Node {
    std::string text;
    std::string key;         // "MyComputer", "ScanMemory", ...; a drive's key is its root, "C:\"
    std::size_t parent = 0;  // 0: the root
    DriveKind drive = DriveKind::Unknown;
    bool ticked = false;
  };

  // Rebuilds the nodes: the seven fixed ones, then one per removable, fixed or network drive.
  // The root starts ticked, and with it everything below.
  void FillTree(const Captions& captions, const std::vector<Drive>& drives);
  // The same anew, in another language or with other drives; ticks stay. A new drive is ticked when
  // the drives are. True when drives have come or gone.
  bool Refill(const Captions& captions, const std::vector<Drive>& drives);

  std::size_t count() const { return nodes_.size(); }
  const Node& node(std::size_t number) const { return nodes_[number - 1]; }
  bool ticked(std::size_t number) const { return node(number).ticked; }
  bool IsDrive(std::size_t number) const { return number >= kFirstDrive; }

  // As the user ticks: children follow; a ticked node ticks its parents; a parent whose last
  // ticked child is cleared is cleared too.
  void SetTicked(std::size_t number, bool ticked);
  // True when anything below the root is ticked.
  bool AnythingTicked() const;

 private:
  void Build(const Captions& captions, const std::vector<Drive>& drives);
  void TickBelow(std::size_t number, bool ticked);
  bool AnyChildTicked(std::size_t number) const;

  std::vector<Node> nodes_;
};

}  // namespace scourwell
