#pragma once

// What stands where in the options dialog.

#include "shell/options.h"
#include "widgets/resource.h"

namespace scourwell::options_table {

enum Tab { kGeneralTab, kScanningTab, kRemovalTab, kPathsTab };
inline constexpr int kTabCaptions[] = {17351, 1532, 17352, 1515};

inline constexpr int kLanguageSection = 1507;

struct BoxRow {
  Tab tab;
  int section;  // number of its caption; another one than in the row before begins a new section
  int id;
  int caption;
  bool OptionControls::*control;
};

inline constexpr BoxRow kBoxRows[] = {
    {kGeneralTab, 1506, IDC_chkScanStartup, 1511, &OptionControls::chkScanStartup},
    {kGeneralTab, 1506, IDC_chkAutoCheckForUpdate, 1521, &OptionControls::chkAutoCheckForUpdate},
    {kGeneralTab, 1506, IDC_chkAutosaveLog, 1512, &OptionControls::chkAutosaveLog},
    {kGeneralTab, 1506, IDC_chkExtraLogInfo, 1531, &OptionControls::chkExtraLogInfo},
    {kGeneralTab, 17344, IDC_chkExplorer, 17342, &OptionControls::chkExplorer},
    {kScanningTab, 17353, IDC_chkSpywareAdware, 1522, &OptionControls::chkSpywareAdware},
    {kScanningTab, 17353, IDC_chkDialers, 1523, &OptionControls::chkDialers},
    {kScanningTab, 17353, IDC_chkKeyLoggers, 1524, &OptionControls::chkKeyLoggers},
    {kScanningTab, 17353, IDC_chkTrojans, 1525, &OptionControls::chkTrojans},
    {kScanningTab, 17353, IDC_chkBHO, 1526, &OptionControls::chkBHO},
    {kScanningTab, 1527, IDC_chkAllCookies, 1529, &OptionControls::chkAllCookies},
    {kScanningTab, 1527, IDC_chkAdvancedScanning, 1530, &OptionControls::chkAdvancedScanning},
    {kScanningTab, 1527, IDC_chkMarkChecked, 1508, &OptionControls::chkMarkChecked},
    {kRemovalTab, 17354, IDC_ChkRemoveFile, 1510, &OptionControls::ChkRemoveFile},
    {kRemovalTab, 17354, IDC_chkUseRegEdit, 1520, &OptionControls::chkUseRegEdit},
    {kRemovalTab, 17354, IDC_ChkAutoRemove, 1509, &OptionControls::ChkAutoRemove},
    {kRemovalTab, 17350, IDC_chkBackupBeforeRemoval, 17343,
     &OptionControls::chkBackupBeforeRemoval},
};

struct PathRow {
  int label;
  int text;
  int browse;
  int hint;
  int caption;
  std::string OptionControls::*control;
};

inline constexpr PathRow kPathRows[] = {
    {IDC_lblRefFileLocation, IDC_txtRefFileLocation, IDC_cmdBrowseRefFileLocation,
     IDC_lblRefFileLocationHint, 1528, &OptionControls::txtRefFileLocation},
    {IDC_lblLogfiles, IDC_txtLogfiles, IDC_cmdBrowseLogfiles, IDC_lblLogfilesHint, 1518,
     &OptionControls::txtLogfiles},
    {IDC_lblBackup, IDC_txtBackup, IDC_cmdBrowseBackup, IDC_lblBackupHint, 1519,
     &OptionControls::txtBackup},
};

inline constexpr std::size_t BoxIndex(int id) {
  std::size_t index = 0;
  while (kBoxRows[index].id != id) ++index;
  return index;
}

}  // namespace scourwell::options_table
