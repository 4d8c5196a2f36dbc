// SPDX-License-Identifier: MIT
#pragma once

#include "console/console_pump.h"
#include "console/exit_codes.h"
#include "console/target.h"
#include "scan/scan_report.h"

namespace scourwell {

// The commands that work on what is kept: backups, the ignore list, startup entries, definitions.
// Each prints lines with tabs between the columns, and ends with kNothingFound or kIncomplete.
class KeptCommands : private ScanReport {
 public:
  KeptCommands(Host& host, const Options& options);

  int Run();

 private:
  void CreateMemoryLogFile(const std::vector<ProcessEntry>&) override {}
  void CreateRegistryScanLogFile() override {}
  void CreateCookieScanLogFile() override {}
  void CreateDriveScanLogFile() override {}
  void FinishScan() override {}

  int Backups();
  int ListBackups();
  int ShowBackup(const std::string& name);
  int DeleteBackup(const std::string& name);
  int Restore();
  int RestoreItems(RestoreRun& run);
  int Ignore();
  int ChangeIgnoreList();
  int Startup();
  int ChangeStartup(class StartupManager& manager);
  int Definitions();

  int Fail(const std::string& text);
  int Fail(const std::string& text, const Outcome& why);
  // Columns of one line, so that no name can pretend to be two.
  void Line(const std::vector<std::string>& columns);
  bool Ask(const std::string& question);
  Engine& engine() { return target_->engine(); }
  // The file name of a backup that is named with or without its extension.
  std::string BackupFile(const std::string& name) const;

  Host& host_;
  const Options& options_;
  ConsolePump pump_;
  std::unique_ptr<Target> target_;
  bool written_ = true;
};

}  // namespace scourwell
