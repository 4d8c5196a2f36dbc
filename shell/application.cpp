// SPDX-License-Identifier: MIT
#include "shell/application.h"

#include <set>
#include <utility>

#include "machine/file_utils.h"
#include "results/report_html.h"

namespace scourwell {

Application::Application(const Ports& ports, const std::string& application_folder,
                         ProgramVersion version)
    : Engine(ports, application_folder, version, *this),
      statistics_(store(), ports.clock, language()),
      file_version_(ports.files, ports.versions, language(), log()),
      scan_log_({ports.files, ports.clock, ports.code_pages, ports.versions, file_version_,
                 ports.processes, ports.pump, log(), language(), settings(), hits(), os(),
                 folders(), version}),
      changes_(reference(), store(), language(), log()),
      exchange_(ports.files, reference(), settings(), language(), log()),
      companions_(ports.files, ports.shell, application_folder) {
  tools().back_up = [this](const std::vector<Finding>& objects) { return BackUp(objects); };
}

void Application::Start() {
  log().deleteLogFile();
  settings_store().LoadSettings();
  started_ = true;
  CheckRelease();
  settings_store().SaveSettings();
}

void Application::SaveSettings() {
  settings_store().SaveSettings();
  CheckRelease();
}

OptionsForm Application::Options() {
  return OptionsForm({ports().files, ports().registry, keys(), ports().shell, log(), language(),
                      os(), folders(), settings(), store(), portable()});
}

void Application::CheckRelease() {
  // The release that came with the program is no update.
  const bool first = store().Get("REFFILE", "Number").empty();
  std::string report = changes_.checkUpdateRefFileChanges();
  if (!report.empty() && !first) change_report_ = std::move(report);
}

std::string Application::TakeChangeReport() {
  return WithShortLines(std::exchange(change_report_, {}));
}

Outcome Application::TakeDefinitions(const DefinitionsOffer& offer) {
  Outcome taken = exchange_.Take(offer);
  // The user has read what they change.
  if (taken.ok()) static_cast<void>(changes_.checkUpdateRefFileChanges());
  return taken;
}

std::string Application::TakeNotKept() {
  return std::exchange(not_kept_said_, true) ? std::string() : NotKept();
}

void Application::FillTree() { scope().FillTree(language(), ports().files.Drives()); }

bool Application::RefillTree() { return scope().Refill(language(), ports().files.Drives()); }

void Application::Shutdown() {
  if (!started_) return;
  log().Trap("MDIForm_Unload", [&]() -> Outcome {
    Outcome first;
    if (settings().AutoSave) return first;
    std::set<std::string> logs = scan_log_.written();
    logs.insert(settings().LogFilePath);
    for (const std::string& log : logs) {
      if (!FileExists(ports().files, log)) continue;
      Outcome erased = ports().files.EraseFile(log);
      if (first.ok() && !erased.ok()) first = std::move(erased).With("LogFile: ", log);
    }
    return first;
  });
  // No look at the definitions here: nobody would see the report any more.
  settings_store().SaveSettings();
}

void Application::PrepareScan() {
  if (busy()) return;
  ports().pump.set_closing(false);
  hits().Clear();
  progress() = {};
}

void Application::RunScan() {
  if (busy()) return;
  CheckRelease();
  RunSession([&](ScanSession& session) { session.StartScan(scope()); });
}

void Application::RunScan(const std::vector<std::string>& paths) {
  if (busy()) return;
  CheckRelease();
  RunSession([&](ScanSession& session) { session.ScanFolders(paths); });
}

std::vector<std::string> Application::BackUp(const std::vector<Finding>& objects) {
  if (!settings().BackupBeforeRemoval) return {};
  ports().pump.set_closing(false);
  std::vector<const Finding*> rows;
  for (const Finding& object : objects) rows.push_back(&object);
  return FailureTexts(language(), backups().Create(backups().NameForNow(), rows));
}

void Application::RemoveSelectedSpy(const std::unordered_set<std::size_t>& kept) {
  if (scanning()) return;
  removal().RemoveSelectedSpy(kept);
  scan_log_.AddRemoval(removal().report());
}

std::string Application::LastLog() const {
  if (FileExists(ports().files, settings().LogFilePath)) return settings().LogFilePath;
  const std::string folder(FolderPart(settings().LogFilePath));
  std::string newest;
  FileTime latest = 0;
  static_cast<void>(
      ports().files.List(AddPathToFileName(folder, "ScanLog*.txt"), [&](const DirEntry& entry) {
        if (entry.IsFolder() || (!newest.empty() && entry.modified < latest)) return true;
        newest = AddPathToFileName(folder, entry.name);
        latest = entry.modified;
        return true;
      }));
  return newest;
}

Outcome Application::WriteReport(const std::string& path) {
  return log().TrapOutcome("cmdReport_Click", [&] {
    return scourwell::WriteReport(
        ports().files, path, language(),
        {Title(), DefinitionsNumber(), ports().clock.GeneralDate(ports().clock.Now()),
         ReportRowsOf(hits()), NothingListed()});
  });
}

void Application::CountRemoved() {
  log().Trap("frmResults_Load", [&]() -> Outcome {
    const RemovalCounters& counters = removal().counters();
    std::int64_t sum = -removal().report().repeated;
    for (const std::int32_t count : {counters.files, counters.folders, counters.registry,
                                     counters.cookies, counters.processes}) {
      sum += count;
    }
    if (sum > INT32_MAX) return Outcome::Failed(kOverflow);
    return statistics_.setNumberOfObjectsRemoved(static_cast<int>(sum));
  });
}

// Every section is announced while it is written.
template <class Write>
void Application::WriteLog(Write&& write) {
  progress().lblScanStatus = language().Text(Caption::WritingLog);
  write();
  progress().lblScanStatus = language().Text(Caption::ScanInProgress);
}

void Application::CreateMemoryLogFile(const std::vector<ProcessEntry>& tasklist) {
  WriteLog([&] { scan_log_.CreateMemoryLogFile(tasklist); });
}

void Application::CreateRegistryScanLogFile() {
  WriteLog([&] { scan_log_.CreateRegistryScanLogFile(); });
}

void Application::CreateCookieScanLogFile() {
  WriteLog([&] { scan_log_.CreateCookieScanLogFile(); });
}

void Application::CreateDriveScanLogFile() {
  WriteLog([&] { scan_log_.CreateDriveScanLogFile(); });
}

void Application::FinishScan() {
  scan_log_.FinishScan();
  log().Trap("FinishScan", [&]() -> Outcome {
    if (Outcome counted = statistics_.setNumberOfScans(); !counted.ok()) return counted;
    return statistics_.setLastSystemScanDate();
  });
}

}  // namespace scourwell
