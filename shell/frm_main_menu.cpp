#include "shell/frm_main_menu.h"

#include "platform/win/window_calls.h"
#include "shell/command_table.h"
#include "widgets/access_keys.h"

namespace scourwell {
namespace {

void Append(HMENU menu, int id, const std::string& text) {
  Calls().Append(menu, MF_STRING, static_cast<UINT_PTR>(id), text);
}

void AppendPopup(HMENU menu, HMENU popup, const std::string& text) {
  Calls().Append(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), text);
}

void AppendRule(HMENU menu) { Calls().Append(menu, MF_SEPARATOR, 0, {}); }

HMENU ScanMenu(const Captions& captions) {
  HMENU menu = CreatePopupMenu();
  Append(menu, IDM_mnuStartScan, captions.Text(17011) + "\tF5");
  Append(menu, IDM_mnuScanFolder, captions.Text(17012));
  AppendRule(menu);
  Append(menu, IDM_mnuExit, captions.Text(17013));
  return menu;
}

HMENU CompanionMenu(const Captions& captions) {
  HMENU menu = CreatePopupMenu();
  AccessKeys keys;
  for (const StartPageButton& row : kCompanionPictures) {
    Append(menu, row.command, keys.Add(captions.Text(row.caption)));
  }
  return menu;
}

HMENU ToolsMenu(const Captions& captions) {
  HMENU menu = CreatePopupMenu();
  Append(menu, IDM_mnuStartupManager, captions.Text(17201));
  Append(menu, IDM_mnuAdwareUninstaller, captions.Text(17202));
  Append(menu, IDM_mnuBrowserHelpers, captions.Text(17203));
  AppendRule(menu);
  Append(menu, IDM_mnuBackups, captions.Text(17149));
  Append(menu, IDM_mnuIgnoreList, captions.Text(17150));
  AppendRule(menu);
  AppendPopup(menu, CompanionMenu(captions), captions.Text(17305));
  Append(menu, IDM_mnuLiveUpdate, captions.Text(17301));
  AppendRule(menu);
  Append(menu, IDM_mnuOptions, captions.Text(17300));
  return menu;
}

HMENU HelpMenu(const Captions& captions) {
  HMENU menu = CreatePopupMenu();
  Append(menu, IDM_mnuHelpContents, captions.Text(17302) + "\tF1");
  AppendRule(menu);
  Append(menu, IDM_mnuOnlineHelp, captions.Text(17303));
  Append(menu, IDM_mnuVisitUsOnline, captions.Text(17304));
  AppendRule(menu);
  Append(menu, IDM_mnuAbout, captions.Text(17015));
  return menu;
}

}  // namespace

void frmMainMenu::Create(HWND window, const Captions& captions) {
  MenuHandle old(menu_);
  menu_ = CreateMenu();
  AppendPopup(menu_, ScanMenu(captions), captions.Text(17010));
  AppendPopup(menu_, ToolsMenu(captions), captions.Text(17158));
  AppendPopup(menu_, HelpMenu(captions), captions.Text(17014));
  SetMenu(window, menu_);
}

void frmMainMenu::Enable(int id, bool enabled) const {
  EnableMenuItem(menu_, static_cast<UINT>(id),
                 MF_BYCOMMAND | static_cast<UINT>(enabled ? MF_ENABLED : MF_GRAYED));
}

}  // namespace scourwell
