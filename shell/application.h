// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "backup/backups.h"
#include "backup/ignore_list.h"
#include "definitions/change_report.h"
#include "definitions/list_loader.h"
#include "definitions/spy_categories.h"
#include "guard/key_remover.h"
#include "platform/code_pages.h"
#include "platform/profiles.h"
#include "platform/shell.h"
#include "platform/versions.h"
#include "results/hit_list.h"
#include "results/removal.h"
#include "results/scan_log.h"
#include "scan/scan_session.h"
#include "settings/settings.h"
#include "shell/companions.h"
#include "shell/language.h"
#include "shell/options.h"
#include "shell/statistics.h"
#include "tools/tool_box.h"

namespace scourwell {

// The machine, as the program sees it.
struct Ports {
  Files& files;
  Registry& registry;
  Registry* registry64;  // the 64-bit view; null where there is only one
  Profiles& profiles;
  Clock& clock;
  System& system;
  Shell& shell;
  Versions& versions;
  Processes& processes;
  Pump& pump;
  CodePages& code_pages;
};

// The program without its windows: everything that lives as long as the process, wired together.
// Windows call it and mirror its models.
class Application : private ScanReport, private LoadProgress {
 public:
  Application(const Ports& ports, const std::string& application_folder, ProgramVersion version);

  // The language alone, for what is shown before the settings are read.
  void ReadLanguage() { settings_store_.ReadLanguage(); }
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

  // Around the two calls below: the program is busy, and an earlier Stop does not end what the user
  // asks for now. `caption` says what goes on.
  void BeginWork(Caption caption);
  void EndWork() { working_ = false; }
  // Whether a backup of the checked rows would hold anything.
  bool AnyToBackUp() const;
  // A backup of the checked rows. `failed_rows` of the result are rows of the results list.
  BackupReport BackUpChecked(const std::string& name, ArchiveOptions options = {});
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

  // "Scourwell 1.0 Rev.0"
  std::string Title() const;

  const Ports& ports() const { return ports_; }
  const SystemFolders& folders() const { return folders_; }
  const COpSysInfo& os() const { return os_; }
  const ProgramVersion& version() const { return version_; }
  ErrorLog& log() { return log_; }
  const Language& language() const { return language_; }
  AppSettings& settings() { return settings_; }
  Statistics& statistics() { return statistics_; }
  ScanScope& scope() { return scope_; }
  HitList& hits() { return hits_; }
  const SpyCategories& categories() const { return categories_; }
  // What is true of the last scan, which lists nothing.
  std::string NothingListed() const;
  IgnoreList& ignore() { return ignore_; }
  Backups& backups() { return backups_; }
  Removal& removal() { return removal_; }
  const ScanProgress& progress() const { return progress_; }
  ReferenceFile& reference() { return reference_; }
  const ScanSession& session() const { return session_; }
  bool scanning() const { return scanning_; }
  // A scan, a backup or a removal is under way.
  bool busy() const { return scanning_ || working_; }
  ToolBox& tools() { return tools_; }
  const Companions& companions() const { return companions_; }

 private:
  void CreateMemoryLogFile(const std::vector<ProcessEntry>& tasklist) override;
  void CreateRegistryScanLogFile() override;
  void CreateCookieScanLogFile() override;
  void CreateDriveScanLogFile() override;
  void FinishScan() override;
  void Begin(int maximum) override;
  void Advance() override;
  void End() override;
  void CheckRelease();
  template <class Write>
  void WriteLog(Write&& write);
  template <class Scan>
  void Run(Scan&& scan);

  Ports ports_;
  ProgramVersion version_;
  ErrorLog log_;
  COpSysInfo os_;
  SystemFolders folders_;
  AppSettings settings_;
  Language language_;
  SettingsStore store_;
  Settings settings_store_;
  Statistics statistics_;
  FileVersion file_version_;
  IgnoreList ignore_;
  HitList hits_;
  ScanLog scan_log_;
  ScanScope scope_;
  ScanProgress progress_;
  ReferenceFile reference_;
  SpyCategories categories_;
  ChangeReport changes_;
  std::string change_report_;
  bool started_ = false;
  DefinitionLists lists_;
  MemoryScan memory_;
  BuiltInLists built_in_;
  ListLoader loader_;
  ScanSession session_;
  Backups backups_;
  KeyRemover keys_;
  Removal removal_;
  ToolBox tools_;
  Companions companions_;
  bool scanning_ = false;
  bool all_read_ = true;  // by the last scan
  bool working_ = false;
};

}  // namespace scourwell
