// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "console/console_pump.h"
#include "console/exit_codes.h"
#include "console/scan_view.h"
#include "console/target.h"
#include "machine/error_log.h"
#include "scan/scan_report.h"

namespace scourwell {

// What the options say of the scan, put over the settings.
void ApplySettings(const Options& options, AppSettings* settings);
// The ticks of the sections. What is not said is scanned.
void ApplySections(const Options& options, ScanScope* scope);

// `scan`, and `remove` which is the same with --remove.
class ScanCommand : private ScanReport, private FailureListener {
 public:
  ScanCommand(Host& host, const Options& options);

  int Run();

 private:
  void HearFailure(const Outcome& outcome, std::string_view method) override;
  void CreateMemoryLogFile(const std::vector<ProcessEntry>&) override {}
  void CreateRegistryScanLogFile() override {}
  void CreateCookieScanLogFile() override {}
  void CreateDriveScanLogFile() override {}
  void FinishScan() override {}

  bool removes() const { return options_.remove || options_.command->bit == kRemove; }
  int Refuse(ExitCode code, const std::string& why);
  bool Prepare(int* code);
  void Scan();
  void ShowNewRows();
  FindingRecord Record(std::size_t row);
  int Remove();
  bool MayRemove(std::size_t checked);
  bool Ask(const std::string& question);
  bool WritePage(const ScanSummary& summary);
  int Finish(int removed);

  Host& host_;
  const Options& options_;
  ConsolePump pump_;
  ScanView view_;
  std::unique_ptr<Target> target_;
  ScanSummary summary_;
  std::size_t shown_ = 0;               // rows
  std::vector<FindingRecord> records_;  // of a scan that removes, as they were found
  bool removing_ = false;               // the scan has ended
  bool failed_ = false;
  std::set<std::string> heard_;  // places and reasons
  std::size_t unread_not_kept_ = 0;
  std::size_t failed_not_kept_ = 0;
};

}  // namespace scourwell
