#include "scan/scan_session.h"

#include "platform/file_utils.h"
#include "scan/cookie_scan.h"
#include "scan/registry_scan.h"

namespace scourwell {
namespace {

// The categories of a drive pass, in their fixed order.
struct Category {
  bool AppSettings::*setting;
  const Loader* folders;
  const Loader* files;
};

constexpr Category kCategories[] = {
    {&AppSettings::Trojans, &kUpdateTrojanList, &kUpdateTrojanList},
    {&AppSettings::Dialers, &kUpdateDialersFolderList, &kUpdateDialersFileList},
    {&AppSettings::BHO, &kUpdateHijackersFolderList, &kUpdateHijackersFileList},
    {&AppSettings::KeyLoggers, &kUpdateKeyLoggersFolderList, &kUpdateKeyLoggersFileList},
    {&AppSettings::SpywareAdware, &kUpdateSpyFolderList, &kUpdateSpyFileList},
};

}  // namespace

void ScanSession::Begin() {
  finished_ = false;
  ClearLists();  // a stopped scan leaves its rows behind
  parts_.progress = {};
  parts_.progress.lblScanStatus = parts_.captions.Text(1805);
}

void ScanSession::StartScan(const ScanScope& scope) {
  static_cast<void>(parts_.log.Trap("StartScan", [&] {
    Begin();
    for (std::size_t i = ScanScope::kMyComputer + 1; i <= scope.count(); ++i) {
      if (!parts_.pump.Next()) return;
      if (scope.ticked(i)) ScanNode(scope, i);
    }
    if (!parts_.pump.Next()) return;
    Finish();
  }));
}

void ScanSession::ScanNode(const ScanScope& scope, std::size_t number) {
  switch (number) {
    case ScanScope::kScanMemory:
      ScanMemory();
      return;
    case ScanScope::kScanRegistry:
      ScanRegistry(scope);
      return;
    case ScanScope::kScanCookie:
      ScanCookies();
      return;
    case ScanScope::kScanDrives:
      ScanDrivesForAll(scope);
      return;
    default:
      return;  // the other nodes are read by the phases
  }
}

void ScanSession::ScanMemory() {
  static_cast<void>(parts_.log.Trap("ScanMemory", [&] {
    parts_.progress.lblScanOption = parts_.captions.Text(1902);
    parts_.memory.ListProcesses();
    parts_.loader.Load(kUpdateMemoryList);
    if (!parts_.pump.closing()) parts_.report.CreateMemoryLogFile(parts_.memory.Tasklist());
  }));
}

void ScanSession::ScanRegistry(const ScanScope& scope) {
  const bool quick = scope.ticked(ScanScope::kQuickScan);
  const bool deep = scope.ticked(ScanScope::kDeepScan);
  if (!quick && !deep) {
    parts_.shell.Message(parts_.captions.Text(1700), parts_.captions.Text(17000));
    return;
  }
  static_cast<void>(parts_.log.Trap("ScanRegistry", [&] {
    parts_.lists.lstRegistry.Clear();
    parts_.loader.Load(kUpdateRegistrySVList);
    RegistryScan scan(parts_.registry, parts_.pump, parts_.log, parts_.sink, parts_.progress,
                      parts_.lists, parts_.loader);
    if (quick && !parts_.pump.closing()) {
      parts_.progress.lblScanOption = parts_.captions.Text(1806);
      scan.QuickPass();
    }
    if (deep && !parts_.pump.closing()) {
      parts_.progress.lblScanOption = parts_.captions.Text(1807);
      scan.DeepPass();
    }
    if (!parts_.pump.closing()) parts_.report.CreateRegistryScanLogFile();
  }));
}

void ScanSession::ScanCookies() {
  static_cast<void>(parts_.log.Trap("ScanCookies", [&] {
    parts_.progress.lblScanOption = parts_.captions.Text(1907);
    parts_.loader.Load(kUpdateCookieList);
    CookieScan(parts_.files, parts_.pump, parts_.log, parts_.sink, parts_.progress,
               parts_.lists.lstSearch)
        .ScanCookie(parts_.settings.CookiesFolder, parts_.settings.AllCookies);
    if (!parts_.pump.closing()) parts_.report.CreateCookieScanLogFile();
  }));
}

void ScanSession::ScanDrivesForAll(const ScanScope& scope) {
  static_cast<void>(parts_.log.Trap("ScanDrivesForAll", [&] {
    BothPasses([&](DriveScan& pass) { pass.ScanDrives(scope); });
    if (!parts_.pump.closing()) parts_.report.CreateDriveScanLogFile();
  }));
}

void ScanSession::ScanFolder(const std::string& path) {
  static_cast<void>(parts_.log.Trap("ScanFolder", [&]() -> Outcome {
    Begin();
    DirEntry entry;
    Outcome found = parts_.files.Stat(path, &entry);
    // A network share has no entry of its own, but it can be listed.
    if (!found.ok() && !FolderExists(parts_.files, path)) {
      parts_.shell.Message(parts_.captions.Text(17031) + "\r\n" + path,
                           parts_.captions.Text(17000));
      return std::move(found).With("sPath: ", path);
    }
    BothPasses([&](DriveScan& pass) { pass.ScanPath(path); });
    ClearLists();
    if (parts_.pump.closing()) return {};
    parts_.report.CreateDriveScanLogFile();
    Finish();
    return {};
  }));
}

// Folders first, then files; the second pass is skipped when the first was stopped.
template <class Walk>
void ScanSession::BothPasses(Walk&& walk) {
  StartPass(1882);
  ScanDrivesForAllFolders();
  if (parts_.pump.closing()) return;
  {
    DriveScan folders(parts_.files, parts_.pump, parts_.log, parts_.captions, parts_.sink,
                      parts_.progress, parts_.lists.lstSearch);
    walk(folders);
  }
  if (parts_.pump.closing()) return;
  StartPass(1883);
  ScanDrivesForAllFiles();
  if (parts_.pump.closing()) return;
  DriveScan files(parts_.files, parts_.pump, parts_.log, parts_.captions, parts_.sink,
                  parts_.progress, parts_.lists.lstSearch);
  walk(files);
}

void ScanSession::StartPass(int caption) {
  parts_.progress.lblScanOption = parts_.captions.Text(caption);
  parts_.progress.lblSFolders = parts_.progress.lblFScan = 0;
  parts_.progress.scanned_files = parts_.progress.scanned_folders = 0;
  parts_.lists.lstSearch.Clear();
}

void ScanSession::ScanDrivesForAllFolders() {
  for (const Category& category : kCategories) {
    if (!(parts_.settings.*category.setting)) continue;
    parts_.loader.removeFromList();
    parts_.loader.Load(*category.folders);
  }
}

void ScanSession::ScanDrivesForAllFiles() {
  for (const Category& category : kCategories) {
    if (!(parts_.settings.*category.setting)) continue;
    parts_.loader.removeFromList();
    parts_.loader.Load(*category.files);
  }
}

void ScanSession::ClearLists() {
  SignatureLists& lists = parts_.lists;
  for (SignatureList* list :
       {&lists.lstSearch, &lists.lstCESearch, &lists.lstIFNSearch, &lists.lstCWSearch,
        &lists.lstFDSearch, &lists.lstOFNSearch, &lists.lstPNSearch, &lists.lstFCSSearch}) {
    list->Clear();
  }
}

void ScanSession::Finish() {
  ClearLists();
  parts_.report.FinishScan();
  const std::string finished = parts_.captions.Text(1808);
  parts_.progress.lblScanStatus = finished;
  parts_.progress.lblScanOption = finished;
  parts_.progress.lblScan = finished;
  finished_ = true;
}

}  // namespace scourwell
