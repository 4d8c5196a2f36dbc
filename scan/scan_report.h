// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "platform/processes.h"

namespace scourwell {

// What the end of a phase and of the whole scan set off: the scan log and the statistics.
class ScanReport {
 public:
  virtual ~ScanReport() = default;
  virtual void CreateMemoryLogFile(const std::vector<ProcessEntry>& tasklist) = 0;
  virtual void CreateRegistryScanLogFile() = 0;
  virtual void CreateCookieScanLogFile() = 0;
  virtual void CreateDriveScanLogFile() = 0;
  virtual void FinishScan() = 0;
};

}  // namespace scourwell
