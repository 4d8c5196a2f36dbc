#pragma once

#include <cstdint>
#include <string>

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

  // What this scan has looked at so far.
  std::uint32_t scanned_files = 0;
  std::uint32_t scanned_folders = 0;
  std::uint32_t scanned_keys = 0;
  std::uint32_t scanned_processes = 0;
};

}  // namespace scourwell
