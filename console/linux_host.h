// SPDX-License-Identifier: MIT
#pragma once

#include "console/target.h"
#include "platform/posix/terminal_posix.h"
#include "settings/program_version.h"

namespace scourwell {

// Linux: plain folders of this machine, or the mounted disks of a Windows that does not run.
class LinuxHost : public Host {
 public:
  explicit LinuxHost(ProgramVersion version) : version_(version) {}

  Terminal& terminal() override { return terminal_; }
  std::string Version() const override;
  std::string Missing(const Options& options) const override;
  std::unique_ptr<Target> Open(const Options& options, Pump& pump, ScanReport& report,
                               std::string* why) override;

 private:
  TerminalPosix terminal_;
  ProgramVersion version_;
};

}  // namespace scourwell
