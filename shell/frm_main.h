// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/win/pump_win.h"
#include "scan/frm_tree.h"
#include "shell/application.h"
#include "shell/command_line.h"
#include "shell/frm_home.h"
#include "shell/frm_host.h"
#include "shell/frm_main_menu.h"
#include "shell/frm_scan_spy.h"
#include "shell/help.h"
#include "shell/start_request.h"
#include "widgets/focus_keeper.h"
#include "widgets/page_keys.h"
#include "widgets/side_menu.h"
#include "widgets/status_bar.h"
#include "widgets/window.h"

namespace scourwell {

// The frame of the program: menu, status bar, the scope tree at the left, one page at the right.
// It owns start-up and shutdown.
class frmMain : public Window, public FormHost {
 public:
  // By which a second start finds the window.
  static constexpr char kName[] = "frmMain";

  frmMain(Application& app, PumpWin& pump, HINSTANCE instance);

  // Start-up, the message loop, shutdown. Returns the exit code.
  int Run(const CommandLine& command, int show);

 private:
  void Load(const CommandLine& command, int show);
  void OpenFirstPage();
  void ShowComplete(int show);
  Area FirstPlace() const;
  SIZE SmallestSize() const;

  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  LRESULT Default(UINT message, WPARAM wparam, LPARAM lparam) override;
  void OnCreate() override;
  void OnSize(Area area) override;
  bool OnCommand(int id) override;
  void OnTimer(UINT_PTR id) override;

  // FormHost
  void PostCommand(int id, const char* method = nullptr) override;
  std::string Hindrance(int id) const override;
  void PageChanged() override;
  void ShowProgress() override;

  // What a menu entry, a key or a page asks for. `needs_quiet`: not while a scan, a removal or
  // another window is at work.
  struct Command {
    int id;
    Outcome (frmMain::*carry)();
    bool needs_quiet;
  };
  static const Command kCommands[];
  Outcome ShowHome();
  Outcome StartScan();
  Outcome ScanFolder();
  Outcome ShowLastResults();
  Outcome ViewLog();
  Outcome Exit();
  Outcome ShowAbout();
  Outcome ShowBackups();
  Outcome ShowIgnoreList();
  Outcome ShowStartupManager();
  Outcome ShowAdwareUninstaller();
  Outcome ShowBrowserHelpers();
  Outcome ShowOptions();
  Outcome ShowHelp();
  Outcome OpenOnlineHelp();
  Outcome VisitUsOnline();
  Outcome ShowChangeReport();
  Outcome LoadDefinitions();
  Outcome FormerDefinitions();
  Outcome ShowTour();

  std::string WebPage(const char* page) const;
  Outcome OpenWebPage(const char* page);
  void CreateMenu();
  void OpenScanPage(frmScanSpy::First first, std::vector<std::string> paths);
  void OpenFolders(frmScanSpy::First first);
  Outcome ScanTicked(frmScanSpy::First first);
  // What second starts of the program ask for.
  LRESULT TakeRequest(WPARAM wparam, LPARAM lparam);
  LRESULT TakeFiles(WPARAM drop);
  void RefreshAfter(bool loaded);
  void WelcomeNewUser();
  void StartWantedScan();
  Outcome ShowContextHelp();
  void EnableCommands();
  void FillSideMenu();
  void LanguageChanged();
  void FollowDrives();
  bool TreeFits(int width) const;
  bool SideMenuFits(int width) const;

  Page* page() const;
  void FitPage();
  void ShowTitle();
  void ShowPointer();
  void ShowTree(bool shown);
  HWND PageFocus() const;

  void Close();
  void Unload();

  Metrics metrics_;
  WindowEnv shared_;
  Application& app_;
  PumpWin& pump_;
  Help help_;
  frmMainMenu menu_;
  SideMenu MenuXP1_;
  HWND client_ = nullptr;
  StatusBar sbrMain_;
  frmTree tree_;
  bool tree_wanted_ = true;
  std::unique_ptr<frmHome> home_;
  std::unique_ptr<frmScanSpy> scan_;
  PageKeys keys_;
  FocusKeeper focus_;
  // The command that a page has posted last, and its name in error records.
  int posted_ = 0;
  const char* posted_method_ = nullptr;
  std::string title_;
  WantedScans wanted_;
  bool drives_changed_ = false;
  bool shows_busy_ = false;  // the pointer
  bool ready_ = false;       // the first page is there
  bool close_wanted_ = false;
  bool started_plainly_ = false;  // with nothing to scan
};

}  // namespace scourwell
