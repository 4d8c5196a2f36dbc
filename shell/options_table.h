// SPDX-License-Identifier: MIT
#pragma once

// What stands where in the options dialog.

#include "shell/options.h"
#include "text/caption_ids.h"
#include "widgets/resource.h"

namespace scourwell::options_table {

enum Tab { kGeneralTab, kScanningTab, kRemovalTab, kPathsTab };
inline constexpr Caption kTabCaptions[] = {Caption::TabGeneral, Caption::TabScanning,
                                           Caption::TabRemoval, Caption::TabPaths};

struct BoxRow {
  Tab tab;
  Caption section;  // another one than in the row before begins a new section
  int id;
  Caption caption;
  bool OptionControls::*control;
};

inline constexpr BoxRow kBoxRows[] = {
    {kGeneralTab, Caption::SectionGeneral, IDC_chkScanStartup, Caption::OptionScanAtStartup,
     &OptionControls::chkScanStartup},
    {kGeneralTab, Caption::SectionGeneral, IDC_chkAutoCheckForUpdate,
     Caption::OptionCheckForUpdates, &OptionControls::chkAutoCheckForUpdate},
    {kGeneralTab, Caption::SectionGeneral, IDC_chkAutosaveLog, Caption::OptionSaveLog,
     &OptionControls::chkAutosaveLog},
    {kGeneralTab, Caption::SectionGeneral, IDC_chkExtraLogInfo, Caption::OptionExtraLogInfo,
     &OptionControls::chkExtraLogInfo},
    {kGeneralTab, Caption::SectionExplorer, IDC_chkExplorer, Caption::OptionExplorer,
     &OptionControls::chkExplorer},
    {kScanningTab, Caption::SectionLookFor, IDC_chkSpywareAdware, Caption::OptionSpyware,
     &OptionControls::chkSpywareAdware},
    {kScanningTab, Caption::SectionLookFor, IDC_chkDialers, Caption::OptionDialers,
     &OptionControls::chkDialers},
    {kScanningTab, Caption::SectionLookFor, IDC_chkKeyLoggers, Caption::OptionKeyLoggers,
     &OptionControls::chkKeyLoggers},
    {kScanningTab, Caption::SectionLookFor, IDC_chkTrojans, Caption::OptionTrojans,
     &OptionControls::chkTrojans},
    {kScanningTab, Caption::SectionLookFor, IDC_chkBHO, Caption::OptionHijackers,
     &OptionControls::chkBHO},
    {kScanningTab, Caption::SectionScanOptions, IDC_chkAllCookies, Caption::OptionAllCookies,
     &OptionControls::chkAllCookies},
    {kScanningTab, Caption::SectionScanOptions, IDC_chkAdvancedScanning, Caption::AdvancedScanning,
     &OptionControls::chkAdvancedScanning},
    {kScanningTab, Caption::SectionScanOptions, IDC_chkMarkChecked, Caption::OptionMarkChecked,
     &OptionControls::chkMarkChecked},
    {kRemovalTab, Caption::SectionRemoving, IDC_ChkRemoveFile, Caption::OptionRemoveAtRestart,
     &OptionControls::ChkRemoveFile},
    {kRemovalTab, Caption::SectionRemoving, IDC_chkUseRegEdit, Caption::OptionUseRegEdit,
     &OptionControls::chkUseRegEdit},
    {kRemovalTab, Caption::SectionRemoving, IDC_ChkAutoRemove, Caption::OptionAutoRemove,
     &OptionControls::ChkAutoRemove},
    {kRemovalTab, Caption::SectionBackups, IDC_chkBackupBeforeRemoval,
     Caption::OptionBackupBeforeRemoval, &OptionControls::chkBackupBeforeRemoval},
};

struct PathRow {
  int label;
  int text;
  int browse;
  int hint;
  Caption caption;
  std::string OptionControls::*control;
};

inline constexpr PathRow kPathRows[] = {
    {IDC_lblRefFileLocation, IDC_txtRefFileLocation, IDC_cmdBrowseRefFileLocation,
     IDC_lblRefFileLocationHint, Caption::PathDefinitions, &OptionControls::txtRefFileLocation},
    {IDC_lblLogfiles, IDC_txtLogfiles, IDC_cmdBrowseLogfiles, IDC_lblLogfilesHint,
     Caption::PathLogFiles, &OptionControls::txtLogfiles},
    {IDC_lblBackup, IDC_txtBackup, IDC_cmdBrowseBackup, IDC_lblBackupHint, Caption::PathBackups,
     &OptionControls::txtBackup},
};

inline constexpr std::size_t BoxIndex(int id) {
  std::size_t index = 0;
  while (kBoxRows[index].id != id) ++index;
  return index;
}

}  // namespace scourwell::options_table
