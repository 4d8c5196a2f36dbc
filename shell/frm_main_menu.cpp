// SPDX-License-Identifier: MIT
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
  Append(menu, IDM_mnuStartScan, captions.Text(Caption::MenuStartScan) + "\tF5");
  Append(menu, IDM_mnuScanFolder, captions.Text(Caption::MenuScanFolder));
  AppendRule(menu);
  Append(menu, IDM_mnuLastResults, captions.Text(Caption::MenuLastResults));
  Append(menu, IDM_mnuViewLog, captions.Text(Caption::MenuViewLog));
  AppendRule(menu);
  Append(menu, IDM_mnuExit, captions.Text(Caption::MenuExit));
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
  Append(menu, IDM_mnuStartupManager, captions.Text(Caption::MenuStartupManager));
  Append(menu, IDM_mnuAdwareUninstaller, captions.Text(Caption::MenuAdwareUninstaller));
  Append(menu, IDM_mnuBrowserHelpers, captions.Text(Caption::MenuBrowserHelperManager));
  AppendRule(menu);
  Append(menu, IDM_mnuBackups, captions.Text(Caption::MenuBackupManagement));
  Append(menu, IDM_mnuIgnoreList, captions.Text(Caption::MenuIgnoreList));
  AppendRule(menu);
  AppendPopup(menu, CompanionMenu(captions), captions.Text(Caption::MenuCompanionPrograms));
  Append(menu, IDM_mnuLiveUpdate, captions.Text(Caption::MenuLiveUpdate));
  Append(menu, IDM_mnuLoadDefinitions, captions.Text(Caption::MenuLoadDefinitions));
  Append(menu, IDM_mnuFormerDefinitions, captions.Text(Caption::MenuFormerDefinitions));
  AppendRule(menu);
  Append(menu, IDM_mnuOptions, captions.Text(Caption::MenuOptions));
  return menu;
}

HMENU HelpMenu(const Captions& captions, frmMainMenu::WebPages pages) {
  HMENU menu = CreatePopupMenu();
  Append(menu, IDM_mnuHelpContents, captions.Text(Caption::MenuHelpContents) + "\tF1");
  Append(menu, IDM_mnuTour, captions.Text(Caption::MenuTour));
  if (pages.support || pages.home) AppendRule(menu);
  if (pages.support) {
    Append(menu, IDM_mnuOnlineHelp, captions.Text(Caption::MenuOnlineHelp));
  }
  if (pages.home) {
    Append(menu, IDM_mnuVisitUsOnline, captions.Text(Caption::MenuVisitUsOnline));
  }
  AppendRule(menu);
  Append(menu, IDM_mnuAbout, captions.Text(Caption::MenuAbout));
  return menu;
}

}  // namespace

void frmMainMenu::Create(HWND window, const Captions& captions, WebPages pages) {
  MenuHandle old(menu_);
  menu_ = CreateMenu();
  AppendPopup(menu_, ScanMenu(captions), captions.Text(Caption::MenuScan));
  AppendPopup(menu_, ToolsMenu(captions), captions.Text(Caption::MenuTools));
  AppendPopup(menu_, HelpMenu(captions, pages), captions.Text(Caption::MenuHelp));
  SetMenu(window, menu_);
}

void frmMainMenu::Enable(int id, bool enabled) const {
  EnableMenuItem(menu_, static_cast<UINT>(id),
                 MF_BYCOMMAND | static_cast<UINT>(enabled ? MF_ENABLED : MF_GRAYED));
}

}  // namespace scourwell
