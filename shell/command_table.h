#pragma once

// What the side menu, the pictures and the links of the start page show and do.

#include "widgets/resource.h"

namespace scourwell {

struct SideMenuEntry {
  const char* key;
  int caption;
  int command;  // 0: the heading of a group
  int icon;
};

inline constexpr SideMenuEntry kSideMenu[] = {
    {"keyScan", 1701, 0, 0},
    {"keyStartScan", 1702, IDM_mnuStartScan, IDI_CommandScan},
    {"keyScanFolder", 1719, IDM_mnuScanFolder, IDI_CommandScanFolder},
    {"keyTools", 1750, 0, 0},
    {"keyBackupManager", 1704, IDM_mnuBackups, IDI_CommandBackup},
    {"keyIgnoreList", 1513, IDM_mnuIgnoreList, IDI_CommandIgnore},
    {"keyStartupManager", 1744, IDM_mnuStartupManager, IDI_CommandStartup},
    {"keyAdwareUninstaller", 1724, IDM_mnuAdwareUninstaller, IDI_CommandUninstaller},
    {"keyBrowserHijackerManager", 1746, IDM_mnuBrowserHelpers, IDI_CommandHelpers},
    {"keyPopupBlocker", 1769, IDM_mnuPopupBlocker, IDI_CommandPopup},
    {"keyResidentWatcher", 1768, IDM_mnuResidentWatcher, IDI_CommandWatcher},
    {"keyNetworkRepair", 1740, IDM_mnuNetworkRepair, IDI_CommandNetwork},
    {"keyHijackScanner", 16214, IDM_mnuHijackScanner, IDI_CommandHijack},
    {"keyConfiguration", 1751, 0, 0},
    {"keyOptions", 1707, IDM_mnuOptions, IDI_CommandOptions},
    {"keyLiveUpdate", 1721, IDM_mnuLiveUpdate, IDI_CommandUpdate},
    {"keyHelp", 1752, 0, 0},
    {"keyOnlineHelp", 1710, IDM_mnuOnlineHelp, IDI_CommandHelp},
    {"keyVisitUsOnline", 1735, IDM_mnuVisitUsOnline, IDI_CommandWeb},
};

// A picture button or a text link of the start page.
struct StartPageButton {
  int control;
  int caption;
  int command;
  const char* method;  // stands in error records
  int icon = 0;        // 0: a link
  int tip = 0;         // caption; 0: none
};

inline constexpr StartPageButton kTaskPictures[] = {
    {IDC_imgSearch, 16200, IDM_mnuStartScan, "imgSearch_Click", IDI_CommandScan, 16213},
    {IDC_imgSettings, 16201, IDM_mnuOptions, "imgSettings_Click", IDI_CommandOptions, 17306},
    {IDC_imgQuarantine, 16202, IDM_mnuBackups, "imgQuarantine_Click", IDI_CommandBackup, 17307},
    {IDC_imgHelp, 16203, IDM_mnuHelpFile, "imgHelp_Click", IDI_CommandHelp, 17308},
};

inline constexpr StartPageButton kCompanionPictures[] = {
    {IDC_imgPopupBlocker, 16204, IDM_mnuPopupBlocker, "imgPopupBlocker_Click", IDI_CommandPopup},
    {IDC_imgResidentWatcher, 16205, IDM_mnuResidentWatcher, "imgResidentWatcher_Click",
     IDI_CommandWatcher},
    {IDC_imgNetworkRepair, 16206, IDM_mnuNetworkRepair, "imgNetworkRepair_Click",
     IDI_CommandNetwork},
    {IDC_imgHijackScanner, 16207, IDM_mnuHijackScanner, "imgHijackScanner_Click",
     IDI_CommandHijack},
    {IDC_imgFirewall, 16215, IDM_mnuFirewall, "imgFirewall_Click", IDI_CommandFirewall},
};

inline constexpr StartPageButton kLinks[] = {
    {IDC_lblOpenBackupList, 16209, IDM_mnuBackups, "lblOpenBackupList"},
    {IDC_lblOpenIgnoreList, 16210, IDM_mnuIgnoreList, "lblOpenIgnoreList"},
    {IDC_lblCheckForupdates, 16211, IDM_mnuLiveUpdate, "lblCheckForupdates"},
};

}  // namespace scourwell
