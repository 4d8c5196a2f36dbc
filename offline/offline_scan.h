// SPDX-License-Identifier: MIT
#pragma once

#include "definitions/builtin_lists.h"
#include "definitions/reference_file.h"
#include "offline/offline_machine.h"
#include "platform/clock.h"
#include "platform/pump.h"
#include "scan/scan_report.h"
#include "scan/scan_scope.h"
#include "settings/app_settings.h"
#include "text/captions.h"

namespace scourwell {

// Every phase but memory over a machine that does not run: once for the machine, then cookies,
// registry and folders of each user. A finding that belongs to one user says whose it is.
class OfflineScan {
 public:
  struct Parts {
    OfflineMachine& machine;
    Pump& pump;
    ErrorLog& log;
    const Captions& captions;
    const AppSettings& settings;
    ReferenceFile& reference;
    FindingSink& sink;
    ScanReport& report;  // of a scan of all users: each section once
    ScanProgress& progress;
    LoadProgress& loading;
    std::string application;  // see OfflineMachine::Folders
  };

  explicit OfflineScan(const Parts& parts) : parts_(parts) {}

  // Scans what is ticked; memory is passed over.
  void StartScan(const ScanScope& scope);
  // The passes over some folders or files of the disk alone.
  void ScanFolders(const std::vector<std::string>& paths);
  bool finished() const { return finished_; }

 private:
  Parts parts_;
  bool finished_ = false;
};

}  // namespace scourwell
