// SPDX-License-Identifier: MIT
#include "scan/scan_session.h"

#include <utility>

#include "machine/file_utils.h"
#include "scan/cookie_scan.h"
#include "scan/matching.h"
#include "scan/registry_scan.h"

namespace scourwell {
namespace {

// What one pass of a category adds: the compiled-in lists, then the file's.
struct Stage {
  BuiltInStage built_in;
  const Loader* loader;
};

// The categories of a drive pass, in their fixed order.
struct Category {
  bool AppSettings::*setting;
  Stage folders;
  Stage files;
};

constexpr Category kCategories[] = {
    {&AppSettings::Trojans,
     {kBuiltInTrojanFolderStage, &kUpdateTrojanList},
     {kBuiltInTrojanFileStage, &kUpdateTrojanList}},
    {&AppSettings::Dialers,
     {kBuiltInDialerFolderStage, &kUpdateDialersFolderList},
     {kBuiltInDialerFileStage, &kUpdateDialersFileList}},
    {&AppSettings::BHO,
     {kBuiltInHijackerFolderStage, &kUpdateHijackersFolderList},
     {kBuiltInHijackerFileStage, &kUpdateHijackersFileList}},
    {&AppSettings::KeyLoggers,
     {kBuiltInKeyLoggerFolderStage, &kUpdateKeyLoggersFolderList},
     {kBuiltInKeyLoggerFileStage, &kUpdateKeyLoggersFileList}},
    {&AppSettings::SpywareAdware,
     {kBuiltInSpyFolderStage, &kUpdateSpyFolderList},
     {kBuiltInSpyFileStage, &kUpdateSpyFileList}},
};

// The lists of version texts and checksums.
constexpr const Loader* kAdvancedLoaders[] = {
    &kUpdateSearchByCompanyList, &kUpdateSearchByOriginalFileName, &kUpdateSearchByInternalFileName,
    &kUpdateSearchByProductName, &kUpdateSearchByFileDescription,  &kUpdateSearchByFileChecSum,
};

// A row that the file withdraws must not come from the compiled-in lists either.
void LoadStage(const ScanSession::Parts& parts, const Stage& stage) {
  parts.built_in.AddBuiltIn(stage.built_in);
  parts.loader.removeFromList();
  parts.loader.Load(*stage.loader);
}

// The places that definitions name, to be looked up before the names are searched for.
void LookUp(const ScanSession::Parts& parts, const DefinitionList<FixedPlace>& places) {
  Matching(parts.files, parts.pump, parts.log, parts.folders, parts.sink).LookUp(places);
}

}  // namespace

void ScanSession::Begin() {
  finished_ = false;
  parts_.lists = {};  // a stopped scan leaves its rows behind
  parts_.progress = {};
  parts_.progress.lblScanStatus = parts_.captions.Text(Caption::ScanInProgress);
}

void ScanSession::StartScan(const ScanScope& scope) {
  parts_.log.Trap("StartScan", [&] {
    Begin();
    for (std::size_t i = ScanScope::kMyComputer + 1; i <= scope.count(); ++i) {
      if (!parts_.pump.Next()) return;
      if (scope.ticked(i)) ScanNode(scope, i);
    }
    if (!parts_.pump.Next()) return;
    Finish();
  });
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
  parts_.log.Trap("ScanMemory", [&] {
    StartPhase(Caption::ScanMemory);
    parts_.memory.ListProcesses();
    LoadStage(parts_, {kBuiltInMemoryStage, &kUpdateMemoryList});
    parts_.memory.MatchAll(parts_.lists.processes);
    if (!parts_.pump.closing()) parts_.report.CreateMemoryLogFile(parts_.memory.Tasklist());
  });
}

void ScanSession::ScanRegistry(const ScanScope& scope) {
  const bool quick = scope.ticked(ScanScope::kQuickScan);
  const bool deep = scope.ticked(ScanScope::kDeepScan);
  if (!quick && !deep) {
    parts_.shell.Message(parts_.captions.Text(Caption::NothingToScan),
                         parts_.captions.Text(Caption::Information));
    return;
  }
  parts_.log.Trap("ScanRegistry", [&] {
    parts_.built_in.AddBuiltIn(kBuiltInRegistryStage);
    parts_.loader.Load(kUpdateRegistrySVList);
    ScanRegistryView(parts_.registry, {}, quick, deep);
    if (parts_.registry64) {
      ScanRegistryView(*parts_.registry64, {true, parts_.os.IsWin7()}, quick, deep);
    }
    if (!parts_.pump.closing()) parts_.report.CreateRegistryScanLogFile();
  });
}

void ScanSession::ScanRegistryView(Registry& registry, RegistryView view, bool quick, bool deep) {
  RegistryScan scan(registry, parts_.pump, parts_.log, parts_.sink, parts_.progress, parts_.lists,
                    parts_.loader, view);
  if (quick && !parts_.pump.closing()) {
    StartPhase(Caption::ScanningRegistry);
    scan.QuickPass();
  }
  if (deep && !parts_.pump.closing()) {
    StartPhase(Caption::DeepScanningRegistry);
    scan.DeepPass();
  }
}

void ScanSession::ScanCookies() {
  parts_.log.Trap("ScanCookies", [&] {
    StartPhase(Caption::ScanCookies);
    LoadStage(parts_, {kBuiltInCookieStage, &kUpdateCookieList});
    CookieScan(parts_.files, parts_.pump, parts_.log, parts_.sink, parts_.progress,
               parts_.lists.cookies)
        .ScanCookie(parts_.settings.CookiesFolder, parts_.settings.AllCookies);
    if (!parts_.pump.closing()) parts_.report.CreateCookieScanLogFile();
  });
}

void ScanSession::ScanDrivesForAll(const ScanScope& scope) {
  parts_.log.Trap("ScanDrivesForAll", [&] {
    BothPasses([&](DriveScan& scan) { scan.ScanDrives(scope); });
    if (!parts_.pump.closing()) parts_.report.CreateDriveScanLogFile();
  });
}

// One that is not there keeps none of the others from being scanned.
void ScanSession::ScanFolders(const std::vector<std::string>& paths) {
  parts_.log.Trap("ScanFolder", [&]() -> Outcome {
    Begin();
    Outcome first;
    std::vector<std::string> there;
    for (const std::string& path : paths) {
      Outcome found = FindPath(path);
      if (found.ok()) there.push_back(path);
      if (first.ok()) first = std::move(found);
    }
    if (there.empty()) return first;
    BothPasses([&](DriveScan& scan) { scan.ScanPaths(there); });
    parts_.lists = {};
    if (parts_.pump.closing()) return first;
    parts_.report.CreateDriveScanLogFile();
    if (!parts_.pump.closing()) Finish();
    return first;
  });
}

Outcome ScanSession::FindPath(const std::string& path) const {
  DirEntry entry;
  Outcome found = parts_.files.Stat(path, &entry);
  // A network share has no entry of its own, but it can be listed.
  if (found.ok() || FolderExists(parts_.files, path)) return {};
  parts_.shell.Message(parts_.captions.Text(Caption::ScanPathMissing) + "\r\n" + path,
                       parts_.captions.Text(Caption::Information));
  return std::move(found).With("sPath: ", path);
}

// Folders first, then files; the second pass is skipped when the first was stopped. The rows of
// both are there before the walk, because it lists each folder for both.
template <class FolderPass>
void ScanSession::BothPasses(FolderPass&& folder_pass) {
  StartPass(Caption::ScanningForFolders);
  parts_.lists.searched.Clear();
  ScanDrivesForAllFolders();
  if (parts_.pump.closing()) return;
  const DefinitionList<SearchedName> folder_rows = std::exchange(parts_.lists.searched, {});
  const std::vector<DefinitionList<FixedPlace>> places = LoadFileRows();
  if (parts_.pump.closing()) return;
  AdvancedScan advanced = MakeAdvancedScan();
  DriveScan scan(
      {parts_.files, parts_.pump, parts_.log, parts_.captions, parts_.sink, parts_.progress},
      folder_rows, parts_.lists.searched, parts_.settings.AdvancedScanning ? &advanced : nullptr);
  folder_pass(scan);
  if (parts_.pump.closing()) return;
  StartPass(Caption::ScanningForFiles);
  ScanDrivesForAllFiles(places);
  if (!parts_.pump.closing()) scan.ScanFiles();
}

void ScanSession::StartPhase(Caption caption) {
  parts_.progress.lblScanOption = parts_.captions.Text(caption);
  parts_.progress.phase.Begin(0);  // until it has counted
}

void ScanSession::StartPass(Caption caption) {
  StartPhase(caption);
  parts_.progress.lblSFolders = parts_.progress.lblFScan = 0;
  parts_.progress.scanned_files = parts_.progress.scanned_folders = 0;
}

void ScanSession::ScanDrivesForAllFolders() {
  for (const Category& category : kCategories) {
    if (!(parts_.settings.*category.setting)) continue;
    LoadStage(parts_, category.folders);
    LookUp(parts_, parts_.lists.fixed);
    parts_.lists.fixed.Clear();
  }
}

// The names that the pass over the files searches for. The places wait for the pass, category by
// category, since what one withdraws is nothing to those before it.
std::vector<DefinitionList<FixedPlace>> ScanSession::LoadFileRows() {
  std::vector<DefinitionList<FixedPlace>> places;
  for (const Category& category : kCategories) {
    if (!(parts_.settings.*category.setting)) continue;
    LoadStage(parts_, category.files);
    places.push_back(std::exchange(parts_.lists.fixed, {}));
  }
  if (parts_.settings.AdvancedScanning) {
    for (const Loader* loader : kAdvancedLoaders) parts_.loader.Load(*loader);
  }
  return places;
}

void ScanSession::ScanDrivesForAllFiles(const std::vector<DefinitionList<FixedPlace>>& places) {
  for (const DefinitionList<FixedPlace>& category : places) LookUp(parts_, category);
}

AdvancedScan ScanSession::MakeAdvancedScan() const {
  return AdvancedScan({parts_.files, parts_.versions, parts_.shell, parts_.pump, parts_.log,
                       parts_.captions, parts_.sink, parts_.progress, parts_.lists,
                       parts_.folders});
}

void ScanSession::Finish() {
  parts_.lists = {};
  parts_.progress.phase.Begin(0);
  parts_.report.FinishScan();
  const std::string finished = parts_.captions.Text(Caption::ScanFinished);
  parts_.progress.lblScanStatus = finished;
  parts_.progress.lblScanOption = finished;
  parts_.progress.lblScan = finished;
  finished_ = true;
}

}  // namespace scourwell
