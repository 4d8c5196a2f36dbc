// SPDX-License-Identifier: MIT
#include "shell/frm_scan_spy.h"

#include <algorithm>

#include "machine/file_utils.h"
#include "results/frm_log.h"
#include "shell/frm_report.h"
#include "widgets/layout.h"
#include "widgets/message_box.h"
#include "widgets/resource.h"

namespace scourwell {
namespace {

constexpr UINT_PTR kStartTimer = 1;
constexpr UINT_PTR kRefreshTimer = 2;
constexpr UINT kStartDelay = 10;  // milliseconds
constexpr UINT kRefreshInterval = 60;

}  // namespace

frmScanSpy::frmScanSpy(const WindowEnv& env, Application& app, FormHost& host, First first,
                       std::vector<std::string> paths)
    : Page(env, "frmScanSpy"),
      app_(app),
      host_(host),
      first_(first),
      paths_(std::move(paths)),
      SpyStatusFrame_(env, app.progress(), app.hits().counters(), app.ports().clock),
      SpyFrame_(env, app.hits(), app.categories(), app.ports().shell) {}

void frmScanSpy::OnCreate() {
  if (first_ != First::Results) app_.PrepareScan();
  SpyStatusFrame_.Create(hwnd(), IDC_SpyStatusFrame);
  if (first_ == First::Results) return ShowResults();
  SetTimer(hwnd(), kStartTimer, kStartDelay, nullptr);
}

void frmScanSpy::OnSize(Area area) {
  Layout layout;
  layout.Place(SpyStatusFrame_.hwnd(), area);
  if (SpyFrame_.hwnd()) layout.Place(SpyFrame_.hwnd(), area);
}

void frmScanSpy::OnTimer(UINT_PTR id) {
  if (id == kRefreshTimer) return ShowProgress();
  KillTimer(hwnd(), kStartTimer);
  RunScan();
}

// The scan runs inside this call; the pump lets the windows live.
void frmScanSpy::RunScan() {
  if (!paths_.empty() && !AnyPathExists()) {
    SpyStatusFrame_.ShowMissing(paths_.front());
    return host_.PageChanged();
  }
  SpyStatusFrame_.ScanBegan();
  SetTimer(hwnd(), kRefreshTimer, kRefreshInterval, nullptr);
  host_.PageChanged();
  paths_.empty() ? app_.RunScan() : app_.RunScan(paths_);
  KillTimer(hwnd(), kRefreshTimer);
  SpyStatusFrame_.ScanEnded(app_.session().finished());
  host_.PageChanged();
  const bool unattended = app_.settings().AutoRemove && first_ == First::Scan;
  if (unattended && app_.session().finished() && !app_.hits().empty() && !leave_) {
    RemoveChecked(true);
    SpyStatusFrame_.ScanEnded(true);
    host_.PageChanged();
  }
  if (leave_) host_.PostCommand(IDM_mnuHome);
}

bool frmScanSpy::AnyPathExists() const {
  Files& files = app_.ports().files;
  return std::any_of(paths_.begin(), paths_.end(), [&](const std::string& path) {
    return FolderExists(files, path) || FileExists(files, path);
  });
}

void frmScanSpy::ShowProgress() {
  SpyStatusFrame_.Refresh();
  host_.ShowProgress();
}

bool frmScanSpy::OnCommand(int id) {
  switch (id) {
    case IDC_cmdAbort:
      cmdAbort_Click();
      return true;
    case IDC_cmdNext:
      app_.log().Trap("cmdNext_Click", [&] { return cmdNext_Click(); });
      return true;
    case IDC_cmdCancel:
    case IDC_cmdCloseResults:
      cmdCancel_Click();
      return true;
    case IDC_cmdViewLog:
      ViewLog();
      return true;
    case IDC_cmdReport:
      if (!app_.busy()) SaveReport(env_, app_);
      return true;
    case IDC_cmdDelete:
      cmdDelete_Click();
      return true;
    case IDC_cmdContinue:
      cmdContinue_Click();
      return true;
    case IDC_cmdExclude:
      cmdExclude_Click();
      return true;
    case IDM_mnuExclude:
      if (!app_.busy()) Exclude(SpyFrame_.SelectedRows());
      return true;
    case IDC_cmdBackup:
      cmdBackup_Click();
      return true;
    default:
      return false;
  }
}

void frmScanSpy::cmdAbort_Click() { app_.ports().pump.set_closing(true); }

Outcome frmScanSpy::cmdNext_Click() {
  if (app_.hits().empty()) {
    if (!app_.settings().AutoRemove) {
      ShowMessage(app_.NothingListed(), Text(Caption::Information));
    }
    host_.PostCommand(IDM_mnuHome);
    return {};
  }
  ShowResults();
  if (app_.hits().uncertain()) {
    ShowMessage(Text(Caption::IgnoreListNotRead) + "\r\n" + Text(Caption::ExcludedMayBeListed),
                Text(Caption::Information), MB_ICONWARNING);
  }
  const std::string stale = AddPathToFileName(app_.folders().application, "Remove.reg");
  if (!FileExists(app_.ports().files, stale)) return {};
  return app_.ports().files.EraseFile(stale);
}

// Made when it is needed: in the language of then.
void frmScanSpy::ShowResults() {
  SpyFrame_.Create(hwnd(), IDC_SpyFrame);
  SpyFrame_.Refresh();
  SpyFrame_.EnableLog(FileExists(app_.ports().files, app_.settings().LogFilePath));
  SpyStatusFrame_.Show(false);
  OnSize(ClientArea());
  host_.PageChanged();
}

void frmScanSpy::cmdCancel_Click() {
  leave_ = true;
  if (app_.busy()) return cmdAbort_Click();
  host_.PostCommand(IDM_mnuHome);
}

void frmScanSpy::ViewLog() {
  frmLog(env_, app_.ports().files, app_.ports().code_pages, app_.settings().LogFilePath, [this] {
    SaveReport(env_, app_);
  }).ShowModal(Root());
}

HWND frmScanSpy::DefaultButton() const {
  return SpyFrame_.Shown() ? SpyFrame_.ContinueButton() : SpyStatusFrame_.DefaultButton();
}

HWND frmScanSpy::EscapeButton() const {
  return SpyFrame_.Shown() ? SpyFrame_.CloseButton() : SpyStatusFrame_.EscapeButton();
}

HWND frmScanSpy::FirstFocus() const {
  return SpyFrame_.Shown() ? SpyFrame_.FirstFocus() : SpyStatusFrame_.FirstFocus();
}

}  // namespace scourwell
