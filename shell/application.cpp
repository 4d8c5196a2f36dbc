// SPDX-License-Identifier: MIT
#include "shell/application.h"

#include <algorithm>
#include <set>
#include <utility>

#include "machine/file_utils.h"
#include "results/report_html.h"
#include "text/unicode.h"

namespace scourwell {
namespace {

constexpr std::size_t kLongestLine = 400;  // of the change report: a message box cannot scroll

}  // namespace

Application::Application(const Ports& ports, const std::string& application_folder,
                         ProgramVersion version)
    : ports_(ports),
      version_(version),
      log_(ports.files, ports.clock, ports.code_pages,
           FullPath_With_Filename(application_folder, "errorlog.txt")),
      os_(ports.system),
      folders_(ComputeSystemFolders(ports.system, ports.registry, os_, log_, application_folder)),
      language_(ports.files, ports.clock, ports.code_pages, log_, settings_, application_folder),
      store_(ports.registry),
      settings_store_({store_, ports.registry, ports.profiles, ports.files, ports.clock,
                       ports.code_pages, log_, folders_, version},
                      settings_),
      statistics_(store_, ports.clock, language_),
      file_version_(ports.files, ports.versions, language_, log_),
      ignore_(ports.files, ports.clock, ports.code_pages, store_, log_,
              AddPathToFileName(application_folder, "ignorespylist.txt")),
      hits_(ignore_, settings_, language_, log_),
      scan_log_({ports.files, ports.clock, ports.code_pages, ports.versions, file_version_,
                 ports.processes, ports.pump, log_, language_, settings_, hits_, os_, folders_,
                 version}),
      reference_(ports.files, ports.clock, log_, settings_, application_folder),
      changes_(reference_, store_, language_, log_),
      memory_({ports.processes, ports.system, ports.pump, log_, os_, folders_, hits_, progress_,
               ports.files}),
      built_in_(lists_, folders_, ports.pump, log_),
      loader_(reference_, lists_, *this, ports.pump, log_, folders_),
      session_({ports.files, ports.registry, ports.registry64, ports.pump, log_, ports.shell,
                language_, settings_, lists_, built_in_, loader_, memory_, ports.versions, os_,
                folders_, hits_, *this, progress_}),
      backups_({ports.files, ports.registry, ports.registry64, ports.clock, ports.pump, ports.shell,
                ports.system, store_, log_, ports.code_pages, os_, folders_, settings_}),
      keys_(ports.registry, log_,
            [this] {
              ports_.shell.Message(language_.Text(Caption::RegistryKeyAccessDenied),
                                   language_.Text(Caption::AccessDenied));
            }),
      removal_({{ports.files, ports.system, ports.shell, ports.pump, log_, ports.code_pages, os_,
                 folders_, settings_, ports.registry},
                ports.processes,
                ports.registry64,
                language_,
                hits_}),
      tools_({ports.files, ports.registry, ports.registry64, ports.profiles, ports.shell,
              ports.system, ports.code_pages, folders_},
             ports.versions, reference_, log_, language_),
      companions_(ports.files, ports.shell, application_folder) {}

void Application::Start() {
  log_.deleteLogFile();
  settings_store_.LoadSettings();
  started_ = true;
  CheckRelease();
  settings_store_.SaveSettings();
}

void Application::SaveSettings() {
  settings_store_.SaveSettings();
  CheckRelease();
}

OptionsForm Application::Options() {
  return OptionsForm({ports_.files, ports_.registry, keys_, ports_.shell, log_, language_, os_,
                      folders_, settings_});
}

void Application::CheckRelease() {
  // The release that came with the program is no update.
  const bool first = store_.Get("REFFILE", "Number").empty();
  std::string report = changes_.checkUpdateRefFileChanges();
  if (!report.empty() && !first) change_report_ = std::move(report);
}

std::string Application::TakeChangeReport() {
  const std::string whole = std::exchange(change_report_, {});
  std::string report;
  for (std::size_t begin = 0; begin < whole.size();) {
    const std::size_t end = std::min(whole.find("\r\n", begin), whole.size());
    const std::string line = whole.substr(begin, end - begin);
    report += line.size() > kLongestLine ? std::string(WholeCharacters(line, kLongestLine)) + "..."
                                         : line;
    if (end < whole.size()) report += "\r\n";
    begin = end + 2;
  }
  return report;
}

void Application::FillTree() { scope_.FillTree(language_, ports_.files.Drives()); }

bool Application::RefillTree() { return scope_.Refill(language_, ports_.files.Drives()); }

void Application::Shutdown() {
  if (!started_) return;
  log_.Trap("MDIForm_Unload", [&]() -> Outcome {
    Outcome first;
    if (settings_.AutoSave) return first;
    std::set<std::string> logs = scan_log_.written();
    logs.insert(settings_.LogFilePath);
    for (const std::string& log : logs) {
      if (!FileExists(ports_.files, log)) continue;
      Outcome erased = ports_.files.EraseFile(log);
      if (first.ok() && !erased.ok()) first = std::move(erased).With("LogFile: ", log);
    }
    return first;
  });
  // No look at the definitions here: nobody would see the report any more.
  settings_store_.SaveSettings();
}

void Application::PrepareScan() {
  if (busy()) return;
  ports_.pump.set_closing(false);
  hits_.Clear();
  progress_ = {};
}

void Application::RunScan() {
  Run([&] { session_.StartScan(scope_); });
}

void Application::RunScan(const std::vector<std::string>& paths) {
  Run([&] { session_.ScanFolders(paths); });
}

std::string Application::NothingListed() const {
  const auto excluded = hits_.counters().ignored;
  if (!session_.finished()) return language_.Text(Caption::ScanStoppedEarly);
  if (!reference_.readable()) return language_.Text(Caption::ScanBuiltInOnly);
  if (excluded > 0) {
    return language_.Text(Caption::ScanAllExcluded) + " " + std::to_string(excluded);
  }
  return language_.Text(all_read_ ? Caption::NoSpywareFound : Caption::ScanNotAllRead);
}

template <class Scan>
void Application::Run(Scan&& scan) {
  if (busy()) return;
  scanning_ = true;
  CheckRelease();
  const unsigned errors = log_.count();
  categories_.Load(reference_);
  scan();
  all_read_ = log_.count() == errors;
  progress_.loading = false;
  scanning_ = false;
}

void Application::BeginWork(Caption caption) {
  ports_.pump.set_closing(false);
  progress_.lblScanStatus = language_.Text(caption);
  working_ = true;
}

bool Application::AnyToBackUp() const {
  for (std::size_t i = 0; i < hits_.size(); ++i) {
    if (hits_.row(i).checked && backups_.Needs(hits_.row(i).finding.object)) return true;
  }
  return false;
}

BackupReport Application::BackUpChecked(const std::string& name, ArchiveOptions options) {
  if (scanning_) return {Outcome::Failed(kPermissionDenied), {}, {}};
  std::vector<const Finding*> rows;
  std::vector<std::size_t> indexes;
  for (std::size_t i = 0; i < hits_.size(); ++i) {
    if (!hits_.row(i).checked) continue;
    rows.push_back(&hits_.row(i).finding);
    indexes.push_back(i);
  }
  BackupReport report = backups_.Create(name, rows, std::move(options));
  for (std::size_t& row : report.failed_rows) row = indexes[row];
  return report;
}

void Application::RemoveSelectedSpy(const std::unordered_set<std::size_t>& kept) {
  if (scanning_) return;
  removal_.RemoveSelectedSpy(kept);
  scan_log_.AddRemoval(removal_.report());
}

std::string Application::LastLog() const {
  if (FileExists(ports_.files, settings_.LogFilePath)) return settings_.LogFilePath;
  const std::string folder(FolderPart(settings_.LogFilePath));
  std::string newest;
  FileTime latest = 0;
  static_cast<void>(
      ports_.files.List(AddPathToFileName(folder, "ScanLog*.txt"), [&](const DirEntry& entry) {
        if (entry.IsFolder() || (!newest.empty() && entry.modified < latest)) return true;
        newest = AddPathToFileName(folder, entry.name);
        latest = entry.modified;
        return true;
      }));
  return newest;
}

Outcome Application::WriteReport(const std::string& path) {
  return log_.TrapOutcome("cmdReport_Click", [&] {
    std::string number = reference_.updateListfromINI("SETTINGS", "UPDATE-FILE-NUMBER");
    if (number.empty()) number = "0-0-0-0";
    return scourwell::WriteReport(ports_.files, path, language_,
                                  {Title(), number, ports_.clock.GeneralDate(ports_.clock.Now()),
                                   ReportRowsOf(hits_), NothingListed()});
  });
}

void Application::CountRemoved() {
  log_.Trap("frmResults_Load", [&]() -> Outcome {
    const RemovalCounters& counters = removal_.counters();
    std::int64_t sum = -removal_.report().repeated;
    for (const std::int32_t count : {counters.files, counters.folders, counters.registry,
                                     counters.cookies, counters.processes}) {
      sum += count;
    }
    if (sum > INT32_MAX) return Outcome::Failed(kOverflow);
    return statistics_.setNumberOfObjectsRemoved(static_cast<int>(sum));
  });
}

std::string Application::Title() const {
  return language_.Text(Caption::ProgramName) + " " + std::to_string(version_.major) + "." +
         std::to_string(version_.minor) + " " + language_.Text(Caption::Revision) +
         std::to_string(version_.revision);
}

// Every section is announced while it is written.
template <class Write>
void Application::WriteLog(Write&& write) {
  progress_.lblScanStatus = language_.Text(Caption::WritingLog);
  write();
  progress_.lblScanStatus = language_.Text(Caption::ScanInProgress);
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
  log_.Trap("FinishScan", [&]() -> Outcome {
    if (Outcome counted = statistics_.setNumberOfScans(); !counted.ok()) return counted;
    return statistics_.setLastSystemScanDate();
  });
}

void Application::Begin(int maximum) {
  progress_.loading = true;
  progress_.load_maximum = maximum;
  progress_.load_done = 0;
}

void Application::Advance() { ++progress_.load_done; }

void Application::End() { progress_.loading = false; }

}  // namespace scourwell
