// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "definitions/change_report.h"
#include "definitions/definitions_exchange.h"
#include "engine/engine.h"
#include "results/scan_log.h"
#include "shell/companions.h"
#include "shell/options.h"
#include "shell/statistics.h"

namespace scourwell {

// The program without its windows: everything that lives as long as the process, wired together.
// Windows call it and mirror its models.
class Application : private ScanReport, public Engine {
 public:
  Application(const Ports& ports, const std::string& application_folder, ProgramVersion version);

  // The language alone, for what is shown before the settings are read.
  void ReadLanguage() { settings_store().ReadLanguage(); }
  // Start-up behind the splash: trims the error log, reads the settings and saves them back.
  void Start();
  // When the user has changed settings: the definitions may be others now.
  void SaveSettings();
  // The options dialog, filled from the settings.
  OptionsForm Options();
  // What a new release of the definitions changed, once after each was noticed; else empty, also
  // for the release of the first start.
  // Releases are noticed at start-up, after the settings were saved, and when a scan begins.
  std::string TakeChangeReport();
  // Definitions that the user brings.
  DefinitionsExchange& exchange() { return exchange_; }
  Outcome TakeDefinitions(const DefinitionsOffer& offer);
  // What a portable copy cannot keep, once; empty when it can.
  std::string TakeNotKept();
  // Rebuilds the scan scope from the drives of the machine.
  void FillTree();
  // The same with the ticks as they are. True when drives have come or gone.
  bool RefillTree();
  // The end of the run: an unsaved scan log goes, the settings are saved. Nothing before Start():
  // there are no settings yet.
  void Shutdown();

  // When the scan window opens: no results, the closing flag cleared. A Stop from here on counts,
  // even before the scan has begun.
  void PrepareScan();
  // A scan of what is ticked, or of some paths. Returns when it has ended or was stopped.
  void RunScan();
  void RunScan(const std::vector<std::string>& paths);
  // Deletes the checked rows but those in `kept`, and writes the log's section about it.
  void RemoveSelectedSpy(const std::unordered_set<std::size_t>& kept);
  // The log of this run, or the newest that an earlier one left beside its place. Empty when there
  // is none.
  std::string LastLog() const;
  // A report of what the last scan listed and what became of it.
  Outcome WriteReport(const std::string& path);
  // Adds what the last removal counted to the statistics, each row once, however often it was
  // tried. Once, when its summary is shown.
  void CountRemoved();

  // What outlives the run besides the settings.
  KeptTexts& kept() { return store(); }
  Statistics& statistics() { return statistics_; }
  const Companions& companions() const { return companions_; }

 private:
  void CreateMemoryLogFile(const std::vector<ProcessEntry>& tasklist) override;
  void CreateRegistryScanLogFile() override;
  void CreateCookieScanLogFile() override;
  void CreateDriveScanLogFile() override;
  void FinishScan() override;
  void CheckRelease();
  // For the tools.
  std::vector<std::string> BackUp(const std::vector<Finding>& objects);
  template <class Write>
  void WriteLog(Write&& write);

  Statistics statistics_;
  FileVersion file_version_;
  ScanLog scan_log_;
  ChangeReport changes_;
  std::string change_report_;
  bool not_kept_said_ = false;
  bool started_ = false;
  DefinitionsExchange exchange_;
  Companions companions_;
};

}  // namespace scourwell
