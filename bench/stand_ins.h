#pragma once

// What a scan reports to, when only its time is of interest.

#include <string>

#include "scan/drive_scan.h"

namespace scourwell::bench {

class PlainCaptions : public Captions {
 public:
  std::string Text(int) const override { return "caption"; }
};

class CountingSink : public DetectionSink {
 public:
  bool Contains(const Detection&) const override { return false; }
  bool Shows(const Detection&) const override { return true; }
  void AddSpyToListView(const Detection&) override { ++hits; }
  int hits = 0;
};

}  // namespace scourwell::bench
