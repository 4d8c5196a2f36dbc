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
#include "widgets/focus_keeper.h"
#include "widgets/page_keys.h"
#include "widgets/status_bar.h"
#include "widgets/window.h"

namespace scourwell {

// The frame of the program: menu, status bar, the scope tree at the left, one page at the right.
// It owns start-up and shutdown.
class frmMain : public Window, public FormHost {
 public:
  frmMain(Application& app, PumpWin& pump, HINSTANCE instance);

  // Start-up, the message loop, shutdown. Returns the exit code.
  int Run(const CommandLine& command, int show);

 private:
  void Load(const CommandLine& command, int show);
  void OpenFirstPage(const CommandLine& command);
  Area FirstPlace() const;
  SIZE SmallestSize() const;

  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  LRESULT Default(UINT message, WPARAM wparam, LPARAM lparam) override;
  void OnCreate() override;
  void OnSize(Area area) override;
  bool OnCommand(int id) override;
  void OnTimer(UINT_PTR id) override;

  // FormHost
  void PostCommand(int id) override;
  void PageChanged() override;
  void ShowProgress() override;

  void ShowHome();
  void StartScan();
  void ScanFolder();
  void OpenScan(const std::string& path);
  bool ShowTool(int id);
  void ShowAbout();
  void ShowBackups();
  void ShowIgnoreList();
  void ShowHelp();
  Outcome CheckForUpdate();
  void ShowChangeReport();

  Page* page() const;
  void FitPage();
  void ShowTitle();
  void ShowTree(bool shown);
  HWND PageFocus() const;

  void Close();
  void Unload();

  Metrics metrics_;
  WindowEnv shared_;
  Application& app_;
  PumpWin& pump_;
  frmMainMenu menu_;
  HWND client_ = nullptr;
  StatusBar sbrMain_;
  frmTree tree_;
  std::unique_ptr<frmHome> home_;
  std::unique_ptr<frmScanSpy> scan_;
  PageKeys keys_;
  FocusKeeper focus_;
  std::string title_;
  bool close_wanted_ = false;
};

}  // namespace scourwell
