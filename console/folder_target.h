// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "console/folder_ports.h"
#include "console/target.h"
#include "offline/iconv_code_pages.h"
#include "offline/offline_ports.h"
#include "offline/posix_files.h"
#include "offline/program_versions.h"
#include "platform/posix/clock_posix.h"

namespace scourwell {

// Plain folders: the whole tree of this machine stands for drive C. Only what is named is scanned,
// and nothing is removed: no guard knows what this machine needs.
class FolderTarget : public Target {
 public:
  FolderTarget(ProgramVersion version, Pump& pump, ScanReport& report);

  Engine& engine() override { return *engine_; }
  bool Scan(const ScanScope& scope, const std::vector<std::string>& paths) override;
  std::string ScannedPath(const std::string& path) override { return OwnPath(path); }
  std::string OwnPath(const std::string& path) override;
  std::string Shown(const std::string& path) const override;
  std::string WhyNoRemoval() const override {
    return "plain folders are only scanned; name a Windows disk with --windows or --drive";
  }

 private:
  PosixFiles files_;
  NoRegistry registry_;
  NoProfiles profiles_;
  ClockPosix clock_;
  NoSystem system_;
  IconvCodePages code_pages_;
  OfflineShell shell_;
  ProgramVersions versions_;
  OfflineProcesses processes_;
  std::unique_ptr<Engine> engine_;
};

}  // namespace scourwell
