// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "console/folder_ports.h"
#include "console/target.h"
#include "offline/offline_machine.h"
#include "offline/offline_removal.h"
#include "offline/offline_scan.h"
#include "platform/posix/clock_posix.h"

namespace scourwell {

// A Windows on mounted disks that does not run. Its own paths are shown.
class DiskTarget : public Target {
 public:
  DiskTarget(std::unique_ptr<OfflineMachine> machine, ProgramVersion version, Pump& pump,
             ScanReport& report);

  Engine& engine() override { return *engine_; }
  bool Scan(const ScanScope& scope, const std::vector<std::string>& paths) override;
  std::string ScannedPath(const std::string& path) override;
  std::string OwnPath(const std::string& path) override;
  std::string OwnFolder(const std::string& path) override;
  std::string WhyNoRemoval() const override;
  RemovalNotes RemoveChecked(const std::string& backup_name) override;
  Backups& backups() override { return Remover().backups(); }
  Outcome Restore(RestoreRun& run, const std::vector<bool>& chosen,
                  RestoreResult* result) override {
    return Remover().Restore(run, chosen, result);
  }
  std::vector<UnreadPlace> Unread() const override;

 private:
  OfflineRemoval& Remover() const;

  std::unique_ptr<OfflineMachine> machine_;
  NoProfiles profiles_;
  ClockPosix clock_;
  Pump& pump_;
  ScanReport& report_;
  std::string application_;
  std::map<std::string, std::string> adopted_;  // folders of this machine, and their roots
  std::unique_ptr<Engine> engine_;
  mutable std::unique_ptr<OfflineRemoval>
      removal_;  // from its first use on: it asks the disk a lot
};

}  // namespace scourwell
