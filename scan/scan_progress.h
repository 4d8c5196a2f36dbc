// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

#include "scan/phase_meter.h"

namespace scourwell {

// What the progress pane shows, as the scan writes it. The pane reads it whenever the scan yields.
struct ScanProgress {
  std::string lblScanStatus;      // overall state
  std::string lblScanOption;      // current phase
  std::string lblScan;            // current item or key
  std::uint32_t lblSFolders = 0;  // folders entered by the walk of this pass
  std::uint32_t lblFScan = 0;     // folders searched in this pass

  // The "loading database" bar: shown while `loading`.
  bool loading = false;
  int load_maximum = 0;
  int load_done = 0;

  PhaseMeter phase;  // of the scan itself; loading has the numbers above

  // What is done of what the bar shows; -1 where nobody can tell.
  int Percentage() const {
    if (!loading) return Percent(phase.done(), phase.total());
    return Percent(static_cast<std::uint32_t>(std::max(0, load_done)),
                   static_cast<std::uint32_t>(std::max(0, load_maximum)));
  }

  // What this scan has looked at so far.
  std::uint32_t scanned_files = 0;
  std::uint32_t scanned_folders = 0;
  std::uint32_t scanned_keys = 0;
  std::uint32_t scanned_processes = 0;
};

}  // namespace scourwell
