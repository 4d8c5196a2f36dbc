// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "scan/phase_meter.h"

namespace scourwell {

// The goal of the second pass over the folders: what the first pass counted, root by root. A folder
// that came or went in between moves the measure within its root only.
class WalkGoal {
 public:
  explicit WalkGoal(PhaseMeter& meter) : meter_(meter) {}

  // From now on the walk is the second one. With nothing counted its end stays unknown.
  void Measure();

  // A root is entered, one of its folders has been searched, all of them have been.
  void Enter(const std::string& root);
  void FolderDone();
  void Leave();

 private:
  struct Root {
    std::string path;
    std::uint32_t folders = 0;
  };

  PhaseMeter& meter_;
  std::vector<Root> roots_;
  std::size_t next_ = 0;  // the first root that the second walk has not passed
  bool measuring_ = false;
};

}  // namespace scourwell
