#include "shell/frm_main_menu.h"

#include "widgets/resource.h"

namespace scourwell {
namespace {

void Append(HMENU menu, int id, const std::string& text) {
  AppendMenuA(menu, MF_STRING, static_cast<UINT_PTR>(id), text.c_str());
}

void AppendPopup(HMENU menu, HMENU popup, const std::string& text) {
  AppendMenuA(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), text.c_str());
}

}  // namespace

void frmMainMenu::Create(HWND window, const Captions& captions) {
  HMENU scan = CreatePopupMenu();
  Append(scan, IDM_mnuStartScan, captions.Text(17011) + "\tF5");
  Append(scan, IDM_mnuScanFolder, captions.Text(17012));
  AppendMenuA(scan, MF_SEPARATOR, 0, nullptr);
  Append(scan, IDM_mnuExit, captions.Text(17013));
  HMENU tools = CreatePopupMenu();
  Append(tools, IDM_mnuStartupManager, captions.Text(17201));
  Append(tools, IDM_mnuAdwareUninstaller, captions.Text(17202));
  Append(tools, IDM_mnuBrowserHelpers, captions.Text(17203));
  AppendMenuA(tools, MF_SEPARATOR, 0, nullptr);
  Append(tools, IDM_mnuBackups, captions.Text(17149));
  Append(tools, IDM_mnuIgnoreList, captions.Text(17150));
  AppendMenuA(tools, MF_SEPARATOR, 0, nullptr);
  Append(tools, IDM_mnuOptions, captions.Text(17300));
  HMENU help = CreatePopupMenu();
  Append(help, IDM_mnuAbout, captions.Text(17015));
  MenuHandle old(menu_);
  menu_ = CreateMenu();
  AppendPopup(menu_, scan, captions.Text(17010));
  AppendPopup(menu_, tools, captions.Text(17158));
  AppendPopup(menu_, help, captions.Text(17014));
  SetMenu(window, menu_);
}

void frmMainMenu::EnableScan(bool enabled) const {
  for (const UINT id :
       {IDM_mnuStartScan, IDM_mnuScanFolder, IDM_mnuBackups, IDM_mnuIgnoreList,
        IDM_mnuStartupManager, IDM_mnuAdwareUninstaller, IDM_mnuBrowserHelpers, IDM_mnuOptions}) {
    EnableMenuItem(menu_, id, MF_BYCOMMAND | (enabled ? MF_ENABLED : MF_GRAYED));
  }
}

}  // namespace scourwell
