// SPDX-License-Identifier: MIT

// What the menus, the keys and the pages of the main window open.
#include "backup/frm_backup.h"
#include "backup/frm_ignore.h"
#include "machine/file_utils.h"
#include "results/frm_log.h"
#include "shell/command_table.h"
#include "shell/frm_main.h"
#include "shell/frm_options.h"
#include "shell/frm_report.h"
#include "text/text.h"
#include "tools/frm_adware_uninstaller.h"
#include "tools/frm_bho.h"
#include "tools/frm_startup_manager.h"
#include "widgets/folder_dialog.h"
#include "widgets/message_box.h"

namespace scourwell {
namespace {

// What the settings may name, in the section of web pages.
constexpr char kWebPages[] = "Web";
constexpr char kSupportPage[] = "Support";
constexpr char kHomePage[] = "Home";
constexpr char kMenuMethod[] = "MenuXP1_Click";

bool IsCompanion(int id) { return id >= IDM_FirstCompanion && id <= IDM_LastCompanion; }

Companion CompanionOf(int id) { return static_cast<Companion>(id - IDM_FirstCompanion); }

}  // namespace

const frmMain::Command frmMain::kCommands[] = {
    {IDM_mnuStartScan, &frmMain::StartScan, true},
    {IDM_mnuScanFolder, &frmMain::ScanFolder, true},
    {IDM_mnuLastResults, &frmMain::ShowLastResults, true},
    {IDM_mnuViewLog, &frmMain::ViewLog, true},
    {IDM_mnuBackups, &frmMain::ShowBackups, true},
    {IDM_mnuIgnoreList, &frmMain::ShowIgnoreList, true},
    {IDM_mnuStartupManager, &frmMain::ShowStartupManager, true},
    {IDM_mnuAdwareUninstaller, &frmMain::ShowAdwareUninstaller, true},
    {IDM_mnuBrowserHelpers, &frmMain::ShowBrowserHelpers, true},
    {IDM_mnuLoadDefinitions, &frmMain::LoadDefinitions, true},
    {IDM_mnuFormerDefinitions, &frmMain::FormerDefinitions, true},
    {IDM_mnuTour, &frmMain::ShowTour, true},
    {IDM_mnuOptions, &frmMain::ShowOptions, true},
    {IDM_mnuHome, &frmMain::ShowHome, false},
    {IDM_mnuChangeReport, &frmMain::ShowChangeReport, false},
    {IDM_mnuHelpContents, &frmMain::ShowContextHelp, false},
    {IDM_mnuHelpFile, &frmMain::ShowHelp, false},
    {IDM_mnuOnlineHelp, &frmMain::OpenOnlineHelp, false},
    {IDM_mnuVisitUsOnline, &frmMain::VisitUsOnline, false},
    {IDM_mnuAbout, &frmMain::ShowAbout, true},
    {IDM_mnuExit, &frmMain::Exit, false},
};

bool frmMain::OnCommand(int id) {
  const bool posted = id == posted_;
  if (posted) posted_ = 0;
  const char* method = posted ? posted_method_ : kMenuMethod;
  if (IsCompanion(id)) {
    app_.log().Trap(method, [&] { return app_.companions().Start(CompanionOf(id)); });
    return true;
  }
  for (const Command& command : kCommands) {
    if (command.id != id) continue;
    if (command.needs_quiet && (app_.busy() || !IsWindowEnabled(hwnd()))) return true;
    app_.log().Trap(method, [&] { return (this->*command.carry)(); });
    return true;
  }
  return false;
}

void frmMain::PostCommand(int id, const char* method) {
  if (method) {
    posted_ = id;
    posted_method_ = method;
  }
  Calls().Post(hwnd(), WM_COMMAND, static_cast<WPARAM>(id), 0);
}

std::string frmMain::Hindrance(int id) const {
  if (!IsCompanion(id) || !app_.companions().Find(CompanionOf(id)).empty()) return {};
  return Text(Caption::CompanionNotInstalled) + "\r\n" +
         app_.companions().ExpectedPath(CompanionOf(id));
}

void frmMain::EnableCommands() {
  for (const Command& command : kCommands) {
    menu_.Enable(command.id, !command.needs_quiet || !app_.busy());
  }
  menu_.Enable(IDM_mnuLastResults, !app_.busy() && !app_.hits().empty());
  for (int id = IDM_FirstCompanion; id <= IDM_LastCompanion; ++id) {
    menu_.Enable(id, Hindrance(id).empty());
  }
}

void frmMain::FillSideMenu() {
  std::vector<SideMenu::Item> items;
  for (const SideMenuEntry& entry : kSideMenu) {
    if (entry.command == IDM_mnuVisitUsOnline && WebPage(kHomePage).empty()) continue;
    const std::string hindrance = Hindrance(entry.command);
    items.push_back(
        {entry.command, Text(entry.caption), entry.icon, !hindrance.empty(), hindrance});
  }
  MenuXP1_.SetName(Text(Caption::Actions));
  MenuXP1_.Fill(std::move(items));
}

// A scan goes by the numbers of the nodes, so that they stay as long as it runs.
void frmMain::FollowDrives() {
  if (!ready_ || !drives_changed_ || app_.busy()) return;
  drives_changed_ = false;
  if (app_.RefillTree()) tree_.FillTree();
}

void frmMain::LanguageChanged() {
  app_.RefillTree();
  tree_.FillTree();
  CreateMenu();
  FillSideMenu();
  if (home_) home_->Refresh();
  Calls().SetText(hwnd(), app_.Title());
  if (scan_) {
    scan_->ShowsResults() ? OpenScanPage(frmScanSpy::First::Results, {}) : scan_->LanguageChanged();
  }
  OnSize(ClientArea());
  PageChanged();
}

Outcome frmMain::ShowHome() {
  if (app_.busy()) return {};
  if (!home_) {
    home_ = std::make_unique<frmHome>(shared_, app_, *this);
    home_->CreateIn(client_);
  }
  home_->Refresh();
  home_->Show(true);
  scan_.reset();
  ShowTree(true);
  PageChanged();
  return {};
}

Outcome frmMain::StartScan() { return ScanTicked(frmScanSpy::First::Scan); }

Outcome frmMain::ScanTicked(frmScanSpy::First first) {
  if (app_.busy()) return {};
  if (app_.scope().AnythingTicked()) {
    OpenScanPage(first, {});
  } else {
    ShowMessage(Text(Caption::NothingToScan), Text(Caption::Information));
  }
  return {};
}

Outcome frmMain::ScanFolder() {
  const std::string folder = AskForFolder(hwnd(), Text(Caption::SelectFolder));
  if (!folder.empty()) OpenScanPage(frmScanSpy::First::Scan, {folder});
  return {};
}

// Whoever left the page of a scan comes back to what it found.
Outcome frmMain::ShowLastResults() {
  if (!app_.hits().empty()) OpenScanPage(frmScanSpy::First::Results, {});
  return {};
}

Outcome frmMain::ViewLog() {
  const std::string log = app_.LastLog();
  if (log.empty()) {
    ShowMessage(Text(Caption::NoLogYet), Text(Caption::Information));
    return {};
  }
  std::function<void()> report;
  if (log == app_.settings().LogFilePath) report = [this] { SaveReport(shared_, app_); };
  frmLog(shared_, app_.ports().files, app_.ports().code_pages, log, report).ShowModal(hwnd());
  return {};
}

void frmMain::OpenScanPage(frmScanSpy::First first, std::vector<std::string> paths) {
  scan_ = std::make_unique<frmScanSpy>(shared_, app_, *this, first, std::move(paths));
  scan_->CreateIn(client_);
  if (home_) home_->Show(false);
  OnSize(ClientArea());
  scan_->Show(true);
  PageChanged();
}

void frmMain::ShowTree(bool shown) {
  tree_wanted_ = shown;
  OnSize(ClientArea());
}

HWND frmMain::PageFocus() const { return page() ? page()->FirstFocus() : nullptr; }

Outcome frmMain::Exit() {
  Calls().Post(hwnd(), WM_CLOSE, 0, 0);
  return {};
}

Outcome frmMain::ShowBackups() {
  pump_.set_closing(false);
  frmBackup(shared_, app_.backups(), app_.ports().clock, app_.settings().BackupFolder, [this] {
    help_.ShowPage("frmBackup", "FB_cmdHelp_Click");
  }).ShowModal(hwnd());
  return {};
}

Outcome frmMain::ShowIgnoreList() {
  frmIgnore(shared_, app_.ignore(), [this] { help_.OpenFile("cmdHelp_Click"); }).ShowModal(hwnd());
  return {};
}

Outcome frmMain::ShowStartupManager() {
  frmStartupManager(shared_, app_.tools()).ShowModal(hwnd());
  return {};
}

Outcome frmMain::ShowAdwareUninstaller() {
  frmAdwareUninstaller(shared_, app_.tools()).ShowModal(hwnd());
  return {};
}

Outcome frmMain::ShowBrowserHelpers() {
  frmBHO(shared_, app_.tools()).ShowModal(hwnd());
  return {};
}

Outcome frmMain::ShowOptions() {
  frmOptions options(shared_, app_);
  options.ShowModal(hwnd());
  // The definitions may be others now, with another number.
  if (options.language_changed()) {
    LanguageChanged();
  } else if (home_) {
    home_->Refresh();
  }
  PostCommand(IDM_mnuChangeReport);
  return {};
}

// It keeps its own records.
Outcome frmMain::ShowHelp() {
  help_.OpenFile("imgHelp_Click");
  return {};
}

// The page in front, or the tree when the keyboard is there.
Outcome frmMain::ShowContextHelp() {
  const char* front = page() ? page()->HelpTopic() : "";
  help_.ShowPage(IsChild(tree_.hwnd(), GetFocus()) ? tree_.HelpTopic() : front);
  return {};
}

Outcome frmMain::OpenOnlineHelp() { return OpenWebPage(kSupportPage); }

Outcome frmMain::VisitUsOnline() { return OpenWebPage(kHomePage); }

// A page is for a browser; anything else that stands there could be a program.
std::string frmMain::WebPage(const char* page) const {
  const std::string address = app_.kept().Get(kWebPages, page);
  const bool plain = StartsWithNoCase(address, "http://") || StartsWithNoCase(address, "https://");
  return plain ? address : std::string();
}

void frmMain::CreateMenu() {
  menu_.Create(hwnd(), app_.language(),
               {!WebPage(kSupportPage).empty(), !WebPage(kHomePage).empty()});
}

Outcome frmMain::OpenWebPage(const char* page) {
  const std::string address = WebPage(page);
  if (address.empty()) return ShowHelp();
  Outcome opened = app_.ports().shell.Open(address);
  if (!opened.ok()) {
    ShowMessage(Text(Caption::WebPageNotOpened) + "\r\n" + address, Text(Caption::Information));
  }
  return std::move(opened).With("Address: ", address);
}

// Not in the middle of anything: a scan that runs shows it when it is done.
Outcome frmMain::ShowChangeReport() {
  if (app_.busy() || close_wanted_ || !IsWindowEnabled(hwnd())) return {};
  const std::string not_kept = app_.TakeNotKept();
  if (!not_kept.empty()) ShowMessage(not_kept, Text(Caption::PortableCopy), MB_ICONWARNING);
  const std::string report = app_.TakeChangeReport();
  if (!report.empty()) ShowMessage(report, Text(Caption::Information));
  return {};
}

}  // namespace scourwell
