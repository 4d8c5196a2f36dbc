// SPDX-License-Identifier: MIT
#pragma once

// What a scan reports to, when only its time is of interest.

#include <string>

#include "scan/drive_scan.h"

namespace scourwell::bench {

class PlainCaptions : public Captions {
 public:
  std::string Text(Caption) const override { return "caption"; }
};

class CountingSink : public FindingSink {
 public:
  bool Contains(const FoundObject&) const override { return false; }
  bool Shows(const FoundObject&) const override { return true; }
  void AddSpyToListView(const Finding&) override { ++hits; }
  int hits = 0;
};

}  // namespace scourwell::bench
