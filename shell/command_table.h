// SPDX-License-Identifier: MIT
#pragma once

// What the side menu, the pictures and the links of the start page show and do.

#include <optional>

#include "text/caption_ids.h"
#include "widgets/resource.h"

namespace scourwell {

struct SideMenuEntry {
  const char* key;
  Caption caption;
  int command;  // 0: the heading of a group
  int icon;
};

inline constexpr SideMenuEntry kSideMenu[] = {
    {"keyScan", Caption::GroupScan, 0, 0},
    {"keyStartScan", Caption::StartScan, IDM_mnuStartScan, IDI_CommandScan},
    {"keyScanFolder", Caption::ScanFolder, IDM_mnuScanFolder, IDI_CommandScanFolder},
    {"keyTools", Caption::GroupTools, 0, 0},
    {"keyBackupManager", Caption::BackupManager, IDM_mnuBackups, IDI_CommandBackup},
    {"keyIgnoreList", Caption::IgnoreList, IDM_mnuIgnoreList, IDI_CommandIgnore},
    {"keyStartupManager", Caption::StartupManager, IDM_mnuStartupManager, IDI_CommandStartup},
    {"keyAdwareUninstaller", Caption::AdwareUninstaller, IDM_mnuAdwareUninstaller,
     IDI_CommandUninstaller},
    {"keyBrowserHijackerManager", Caption::BrowserHelperManager, IDM_mnuBrowserHelpers,
     IDI_CommandHelpers},
    {"keyPopupBlocker", Caption::PopupBlocker, IDM_mnuPopupBlocker, IDI_CommandPopup},
    {"keyResidentWatcher", Caption::ResidentWatcher, IDM_mnuResidentWatcher, IDI_CommandWatcher},
    {"keyNetworkRepair", Caption::NetworkRepair, IDM_mnuNetworkRepair, IDI_CommandNetwork},
    {"keyHijackScanner", Caption::HijackScanner, IDM_mnuHijackScanner, IDI_CommandHijack},
    {"keyConfiguration", Caption::GroupConfiguration, 0, 0},
    {"keyOptions", Caption::Options, IDM_mnuOptions, IDI_CommandOptions},
    {"keyLiveUpdate", Caption::LiveUpdate, IDM_mnuLiveUpdate, IDI_CommandUpdate},
    {"keyHelp", Caption::GroupHelp, 0, 0},
    {"keyOnlineHelp", Caption::Help, IDM_mnuHelpFile, IDI_CommandHelp},
    {"keyVisitUsOnline", Caption::VisitUsOnline, IDM_mnuVisitUsOnline, IDI_CommandWeb},
};

// A picture button or a text link of the start page.
struct StartPageButton {
  int control;
  Caption caption;
  int command;
  const char* method;  // stands in error records
  int icon = 0;        // 0: a link
  std::optional<Caption> tip = std::nullopt;
};

inline constexpr StartPageButton kTaskPictures[] = {
    {IDC_imgSearch, Caption::PictureStartScan, IDM_mnuStartScan, "imgSearch_Click", IDI_CommandScan,
     Caption::TipStartScan},
    {IDC_imgSettings, Caption::PictureOptions, IDM_mnuOptions, "imgSettings_Click",
     IDI_CommandOptions, Caption::TipOptions},
    {IDC_imgQuarantine, Caption::PictureBackupManager, IDM_mnuBackups, "imgQuarantine_Click",
     IDI_CommandBackup, Caption::TipBackupManager},
    {IDC_imgHelp, Caption::PictureHelp, IDM_mnuHelpFile, "imgHelp_Click", IDI_CommandHelp,
     Caption::TipHelp},
};

inline constexpr StartPageButton kCompanionPictures[] = {
    {IDC_imgPopupBlocker, Caption::PicturePopupBlocker, IDM_mnuPopupBlocker,
     "imgPopupBlocker_Click", IDI_CommandPopup},
    {IDC_imgResidentWatcher, Caption::PictureResidentWatcher, IDM_mnuResidentWatcher,
     "imgResidentWatcher_Click", IDI_CommandWatcher},
    {IDC_imgNetworkRepair, Caption::PictureNetworkRepair, IDM_mnuNetworkRepair,
     "imgNetworkRepair_Click", IDI_CommandNetwork},
    {IDC_imgHijackScanner, Caption::PictureHijackScanner, IDM_mnuHijackScanner,
     "imgHijackScanner_Click", IDI_CommandHijack},
    {IDC_imgFirewall, Caption::PictureFirewall, IDM_mnuFirewall, "imgFirewall_Click",
     IDI_CommandFirewall},
};

inline constexpr StartPageButton kLinks[] = {
    {IDC_lblOpenBackupList, Caption::LinkBackupList, IDM_mnuBackups, "lblOpenBackupList"},
    {IDC_lblOpenIgnoreList, Caption::LinkIgnoreList, IDM_mnuIgnoreList, "lblOpenIgnoreList"},
    {IDC_lblCheckForupdates, Caption::LinkCheckForUpdates, IDM_mnuLiveUpdate, "lblCheckForupdates"},
};

}  // namespace scourwell
