// SPDX-License-Identifier: MIT
#include "offline/offline_scan.h"

#include <algorithm>

#include "definitions/builtin_lists.h"
#include "machine/file_utils.h"
#include "offline/user_sink.h"
#include "scan/cookie_scan.h"
#include "scan/memory_scan.h"
#include "scan/scan_session.h"
#include "text/paths.h"

namespace scourwell {
namespace {

class NoReport : public ScanReport {
  void CreateMemoryLogFile(const std::vector<ProcessEntry>&) override {}
  void CreateRegistryScanLogFile() override {}
  void CreateCookieScanLogFile() override {}
  void CreateDriveScanLogFile() override {}
  void FinishScan() override {}
};

// Browsers have kept cookies in several places, and less trusted pages have theirs below.
std::vector<std::string> CookieFolders(System& system, const SystemFolders& folders) {
  std::vector<std::string> found;
  const auto add = [&](const std::string& folder) {
    if (!IsAbsolutePath(folder)) return;
    for (const char* below : {"", "\\Low"}) {
      const std::string path = std::string(WithoutEndSeparators(folder)) + below;
      if (std::ranges::find(found, path) == found.end()) found.push_back(path);
    }
  };
  add(folders.Special(SpecialFolder::Cookies));
  const std::string below = "Microsoft\\Windows\\";
  for (const auto& [variable, name] :
       {std::pair{"LOCALAPPDATA", "INetCookies"}, {"APPDATA", "Cookies"}}) {
    const std::string folder = system.Environment(variable);
    if (!folder.empty()) add(AddPathToFileName(folder, below + name));
  }
  return found;
}

}  // namespace

// The parts of one session, for the folders of one user.
class OfflineScan::Pass {
 public:
  Pass(const Parts& parts, const SystemFolders& folders, std::string user)
      : parts_(parts), folders_(folders), sink_(parts.sink, std::move(user)) {}

  ScanSession& session() { return session_; }

  void ScanCookies(const std::vector<std::string>& places) {
    built_in_.AddBuiltIn(kBuiltInCookieStage);
    loader_.removeFromList();
    loader_.Load(kUpdateCookieList);
    CookieScan scan(parts_.machine.files(), parts_.pump, parts_.log, sink_, parts_.progress,
                    lists_.cookies);
    for (const std::string& place : places) {
      if (!parts_.pump.closing()) scan.ScanCookie(place, parts_.settings.AllCookies);
    }
  }

 private:
  const Parts& parts_;
  const SystemFolders& folders_;
  UserSink sink_;
  NoReport report_;
  DefinitionLists lists_;
  BuiltInLists built_in_{lists_, folders_, parts_.pump, parts_.log};
  ListLoader loader_{parts_.reference, lists_, parts_.loading, parts_.pump, parts_.log, folders_};
  MemoryScan memory_{{parts_.machine.processes(), parts_.machine.system(), parts_.pump, parts_.log,
                      parts_.machine.os(), folders_, sink_, parts_.progress,
                      parts_.machine.files()}};
  ScanSession session_{{parts_.machine.files(), parts_.machine.registry(),
                        parts_.machine.registry64(), parts_.pump, parts_.log,
                        parts_.machine.shell(), parts_.captions, parts_.settings, lists_, built_in_,
                        loader_, memory_, parts_.machine.versions(), parts_.machine.os(), folders_,
                        sink_, report_, parts_.progress}};
};

SystemFolders OfflineScan::FoldersFor(const OfflineUser* user) {
  parts_.machine.ActAs(user);
  return parts_.machine.Folders(parts_.log, parts_.application);
}

void OfflineScan::Counting(const std::function<void()>& scan) {
  const ScanProgress before = parts_.progress;
  scan();
  parts_.progress.scanned_files += before.scanned_files;
  parts_.progress.scanned_folders += before.scanned_folders;
  parts_.progress.scanned_keys += before.scanned_keys;
}

void OfflineScan::StartScan(const ScanScope& scope) {
  finished_ = false;
  parts_.progress = {};
  ScanMachine(scope);
  for (const OfflineUser& user : parts_.machine.users()) {
    if (parts_.pump.closing()) return;
    Counting([&] { ScanUser(scope, user); });
  }
  parts_.machine.ShowUserOnly(false);
  parts_.machine.ActAs(nullptr);
  if (!parts_.pump.closing()) Report(scope);
}

// The places that definitions name are those of the first user, since all of them come up with
// their own users anyway.
void OfflineScan::ScanMachine(const ScanScope& scope) {
  const auto& users = parts_.machine.users();
  const SystemFolders folders = FoldersFor(users.empty() ? nullptr : &users.front());
  parts_.machine.ActAs(nullptr);
  ScanScope ticked = scope;
  ticked.SetTicked(ScanScope::kScanMemory, false);
  ticked.SetTicked(ScanScope::kScanCookie, false);
  if (!ticked.AnythingTicked()) return;
  Pass(parts_, folders, {}).session().StartScan(ticked);
}

void OfflineScan::ScanUser(const ScanScope& scope, const OfflineUser& user) {
  const SystemFolders folders = FoldersFor(&user);
  parts_.machine.ShowUserOnly(true);
  // Without drives the places that definitions name are looked up, and nothing is walked again.
  ScanScope ticked;
  ticked.FillTree(parts_.captions, {});
  ticked.SetTicked(ScanScope::kScanMemory, false);
  ticked.SetTicked(ScanScope::kScanCookie, false);
  for (const std::size_t node : {ScanScope::kQuickScan, ScanScope::kDeepScan}) {
    if (!scope.ticked(node) || !scope.ticked(ScanScope::kScanRegistry)) {
      ticked.SetTicked(node, false);
    }
  }
  if (!scope.ticked(ScanScope::kScanDrives)) ticked.SetTicked(ScanScope::kScanDrives, false);
  Pass pass(parts_, folders, user.name);
  if (ticked.AnythingTicked()) pass.session().StartScan(ticked);
  if (scope.ticked(ScanScope::kScanCookie) && !parts_.pump.closing()) {
    pass.ScanCookies(CookieFolders(parts_.machine.system(), folders));
  }
  parts_.machine.ShowUserOnly(false);
}

void OfflineScan::ScanFolders(const std::vector<std::string>& paths) {
  finished_ = false;
  const auto& users = parts_.machine.users();
  const SystemFolders folders = FoldersFor(users.empty() ? nullptr : &users.front());
  parts_.machine.ActAs(nullptr);
  Pass(parts_, folders, {}).session().ScanFolders(paths);
  if (parts_.pump.closing()) return;
  parts_.report.CreateDriveScanLogFile();
  parts_.report.FinishScan();
  finished_ = true;
}

void OfflineScan::Report(const ScanScope& scope) {
  if (scope.ticked(ScanScope::kScanRegistry)) parts_.report.CreateRegistryScanLogFile();
  if (scope.ticked(ScanScope::kScanCookie)) parts_.report.CreateCookieScanLogFile();
  if (scope.ticked(ScanScope::kScanDrives)) parts_.report.CreateDriveScanLogFile();
  parts_.report.FinishScan();
  finished_ = true;
}

}  // namespace scourwell
