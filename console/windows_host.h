// SPDX-License-Identifier: MIT
#pragma once

#include "console/target.h"
#include "settings/program_version.h"

namespace scourwell {

// The Windows that runs, by its ports.
struct WindowsMachine {
  Files& files;
  Registry& registry;
  Registry* registry64;
  Profiles& profiles;
  Clock& clock;
  System& system;
  Shell& shell;
  Versions& versions;
  Processes& processes;
  CodePages& code_pages;
};

// Where a path of the user leads, seen from the folder in which the program was started.
using FullPath = std::string (*)(const std::string& path);

class WindowsHost : public Host {
 public:
  WindowsHost(Terminal& terminal, const WindowsMachine& machine, FullPath full_path,
              std::string application_folder, ProgramVersion version)
      : terminal_(terminal),
        machine_(machine),
        full_path_(full_path),
        application_folder_(std::move(application_folder)),
        version_(version) {}

  Terminal& terminal() override { return terminal_; }
  std::string Version() const override;
  std::unique_ptr<Target> Open(const Options& options, Pump& pump, ScanReport& report,
                               std::string* why) override;

 private:
  Terminal& terminal_;
  WindowsMachine machine_;
  FullPath full_path_;
  std::string application_folder_;
  ProgramVersion version_;
};

}  // namespace scourwell
