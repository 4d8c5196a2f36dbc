// What the menu of the main window opens.
#include "backup/frm_backup.h"
#include "backup/frm_ignore.h"
#include "platform/file_utils.h"
#include "shell/frm_main.h"
#include "shell/frm_options.h"
#include "tools/frm_adware_uninstaller.h"
#include "tools/frm_bho.h"
#include "tools/frm_startup_manager.h"
#include "widgets/folder_dialog.h"
#include "widgets/message_box.h"
#include "widgets/resource.h"

namespace scourwell {

bool frmMain::ShowTool(int id) {
  if (app_.scanning()) return false;
  switch (id) {
    case IDM_mnuStartupManager:
      frmStartupManager(shared_, app_.tools()).ShowModal(hwnd());
      return true;
    case IDM_mnuAdwareUninstaller:
      frmAdwareUninstaller(shared_, app_.tools()).ShowModal(hwnd());
      return true;
    case IDM_mnuBrowserHelpers:
      frmBHO(shared_, app_.tools()).ShowModal(hwnd());
      return true;
    case IDM_mnuOptions:
      frmOptions(shared_, app_).ShowModal(hwnd());
      PageChanged();
      return true;
    default:
      return false;
  }
}

void frmMain::ShowHome() {
  if (app_.busy()) return;
  if (!home_) {
    home_ = std::make_unique<frmHome>(shared_, app_, *this);
    home_->CreateIn(client_);
  }
  home_->Refresh();
  home_->Show(true);
  scan_.reset();
  ShowTree(true);
  PageChanged();
}

void frmMain::StartScan() {
  if (app_.busy()) return;
  if (!app_.scope().AnythingTicked()) return ShowMessage(Text(1700), Text(17000));
  OpenScan({});
}

void frmMain::ScanFolder() {
  if (app_.busy()) return;
  const std::string folder = AskForFolder(hwnd(), Text(17022));
  if (!folder.empty()) OpenScan(folder);
}

void frmMain::OpenScan(const std::string& path) {
  scan_ = std::make_unique<frmScanSpy>(shared_, app_, *this, path);
  scan_->CreateIn(client_);
  FitPage();
  scan_->Show(true);
  if (home_) home_->Show(false);
  PageChanged();
}

void frmMain::ShowAbout() {
  ShowMessageWithIcon(shared_.instance, IDI_Scourwell, app_.Title() + "\r\n\r\n" + Text(17030),
                      Text(1753));
}

void frmMain::ShowBackups() {
  if (app_.busy()) return;
  pump_.set_closing(false);
  frmBackup(shared_, app_.backups(), app_.ports().clock, app_.settings().BackupFolder, [this] {
    ShowHelp();
  }).ShowModal(hwnd());
}

void frmMain::ShowIgnoreList() {
  if (app_.busy()) return;
  frmIgnore(shared_, app_.ignore(), [this] { ShowHelp(); }).ShowModal(hwnd());
}

void frmMain::ShowHelp() {
  const std::string file = AddPathToFileName(app_.folders().application, "Help\\help.chm");
  const Outcome opened =
      app_.log().Trap("cmdHelp_Click", [&] { return app_.ports().shell.Open(file); });
  if (!opened.ok()) ShowMessage(Text(17157) + "\r\n" + file, Text(17000));
}

}  // namespace scourwell
