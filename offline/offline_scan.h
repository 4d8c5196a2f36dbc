// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "definitions/list_loader.h"
#include "definitions/reference_file.h"
#include "offline/offline_machine.h"
#include "platform/pump.h"
#include "scan/scan_progress.h"
#include "scan/scan_report.h"
#include "scan/scan_scope.h"
#include "settings/app_settings.h"
#include "text/captions.h"

namespace scourwell {

// Every phase but memory over a machine that does not run: once for the machine, then for each user
// what belongs to that user. A finding in somebody's registry or cookies says whose they are.
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
    ScanReport& report;  // each section once, when all users are done
    ScanProgress& progress;
    LoadProgress& loading;
    std::string application;  // see OfflineMachine::Folders
  };

  explicit OfflineScan(const Parts& parts) : parts_(parts) {}

  // Scans what is ticked; memory is passed over.
  void StartScan(const ScanScope& scope);
  // The passes over some folders or files of the disk alone.
  void ScanFolders(const std::vector<std::string>& paths);
  // True when the last scan came to its end.
  bool finished() const { return finished_; }

 private:
  class Pass;

  void ScanMachine(const ScanScope& scope);
  void ScanUser(const ScanScope& scope, const OfflineUser& user);
  SystemFolders FoldersFor(const OfflineUser* user);
  // Keeps what was counted before from being forgotten.
  void Counting(const std::function<void()>& scan);
  void Report(const ScanScope& scope);

  Parts parts_;
  bool finished_ = false;
};

}  // namespace scourwell
