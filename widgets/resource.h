// SPDX-License-Identifier: MIT

// Numbers of resources, menu entries and controls. They are stable: tests and assistive programs
// find the controls by them. Read by the resource compiler too, so there are only #defines here.
#pragma once

// Resources
#define IDI_Scourwell 1
// The icons of the commands, in the order in which the windows offer them
#define IDI_CommandScan 20
#define IDI_CommandScanFolder 21
#define IDI_CommandBackup 22
#define IDI_CommandIgnore 23
#define IDI_CommandStartup 24
#define IDI_CommandUninstaller 25
#define IDI_CommandHelpers 26
#define IDI_CommandPopup 27
#define IDI_CommandWatcher 28
#define IDI_CommandNetwork 29
#define IDI_CommandHijack 30
#define IDI_CommandFirewall 31
#define IDI_CommandOptions 32
#define IDI_CommandUpdate 33
#define IDI_CommandHelp 34
#define IDI_CommandWeb 35
#define IDB_Kinds16 101
#define IDB_Scope16 102
#define IDB_Banner 103
#define IDB_Banner32 104
#define IDA_Main 110

// Menu entries of frmMain
#define IDM_mnuStartScan 40001
#define IDM_mnuScanFolder 40002
#define IDM_mnuExit 40003
#define IDM_mnuAbout 40004
#define IDM_mnuBackups 40006
#define IDM_mnuIgnoreList 40007
#define IDM_mnuChangeReport 40008  // no entry: posted when a scan has ended
#define IDM_mnuHome 40005          // no entry: pages post it to leave for the start page
// Popup menu of SpyListView
#define IDM_mnuCheckAll 40011
#define IDM_mnuUncheckAll 40012
#define IDM_mnuShowProperties 40013
#define IDM_mnuDelete 40014
#define IDM_mnuExclude 40015
#define IDM_mnuCheckSpy 40016
#define IDM_mnuUncheckSpy 40017
#define IDM_mnuOpenFolder 40018
#define IDM_mnuCopyFinding 40019
#define IDM_mnuLastResults 40020
#define IDM_mnuViewLog 40021
#define IDM_mnuGroupBySpy 40022
#define IDM_mnuWhatIsThis 40023

// The tools: entries of frmMain
#define IDM_mnuStartupManager 40100
#define IDM_mnuAdwareUninstaller 40101
#define IDM_mnuBrowserHelpers 40102
#define IDM_mnuOptions 40103
// frmStartupManager; the names are those of the program's menu keys
#define IDM_keyEdit 40110
#define IDM_keyAutoexec 40111
#define IDM_keyConfig 40112
#define IDM_keyRegistry 40113
#define IDM_keySave 40114
#define IDM_keyLoad 40115
#define IDM_keyResetAll 40116
#define IDM_keyAddTask 40117
// Popup menu of the tools' lists
#define IDM_mnuCopyRow 40120
#define IDM_mnuFileProperties 40121
#define IDM_mnuOpenKey 40122
#define IDM_mnuRefresh 40123
#define IDM_mnuOpenLocation 40124

// Help and the web: entries of frmMain
#define IDM_mnuHelpContents 40130
#define IDM_mnuOnlineHelp 40131
#define IDM_mnuVisitUsOnline 40132
#define IDM_mnuHelpFile 40133  // no entry: the help picture posts it
// Definitions that the user brings, and the first steps: entries of frmMain
#define IDM_mnuLoadDefinitions 40150
#define IDM_mnuFormerDefinitions 40151
#define IDM_mnuTour 40152
// The companion programs, in the order of enum Companion: entries of frmMain
#define IDM_FirstCompanion 40140
#define IDM_mnuPopupBlocker 40140
#define IDM_mnuResidentWatcher 40141
#define IDM_mnuNetworkRepair 40142
#define IDM_mnuHijackScanner 40143
#define IDM_mnuFirewall 40144
#define IDM_mnuLiveUpdate 40145
#define IDM_LastCompanion 40145

// frmMain; its pages get numbers from IDC_FirstPage on
#define IDC_StatusBar 1001
#define IDC_MdiClient 1002
#define IDC_frmTree 1003
#define IDC_MenuXP1 1004
#define IDC_FirstPage 50000

// frmTree
#define IDC_lblSection 1101
#define IDC_TreeView1 1102

// frmHome
#define IDC_HomeHeader 1200
#define IDC_lblWelcome 1201
#define IDC_lblWelcomeText 1202
#define IDC_imgSearch 1203
#define IDC_imgSettings 1204
#define IDC_lblScansCaption 1205
#define IDC_lblScans 1206
#define IDC_lblLastScanCaption 1207
#define IDC_lblLastScan 1208
#define IDC_lblRemovedCaption 1209
#define IDC_lblRemoved 1210
#define IDC_lblLanguageCaption 1211
#define IDC_lblLanguage 1212
#define IDC_lblDefinitionsCaption 1213
#define IDC_lblDefinitions 1214
#define IDC_imgQuarantine 1215
#define IDC_imgHelp 1216
#define IDC_imgPopupBlocker 1217
#define IDC_imgResidentWatcher 1218
#define IDC_imgNetworkRepair 1219
#define IDC_imgHijackScanner 1220
#define IDC_imgFirewall 1221
#define IDC_lblOpenBackupList 1222
#define IDC_lblOpenIgnoreList 1223
#define IDC_lblCheckForupdates 1224
#define IDC_lblResultsHeading 1225
#define IDC_lblComputerHeading 1226
#define IDC_lblCompanionsHeading 1227
#define IDC_lblCompanionsFolder 1228
#define IDC_lblRights 1229
#define IDC_lblFolderOpen 1346

// frmScanSpy: SpyStatusFrame, the progress pane
#define IDC_SpyStatusFrame 1300
#define IDC_ScanHeader 1301
#define IDC_lblScanHeading 1302
#define IDC_lblScanStatus 1303
#define IDC_lblElapsed 1304
#define IDC_lblScanOption 1305
#define IDC_prgLoading 1306
#define IDC_ActivityBar 1307
#define IDC_lblCurrentItem 1308
#define IDC_lblScan 1309
#define IDC_lblSFoldersCaption 1310
#define IDC_lblSFolders 1311
#define IDC_lblFScanCaption 1312
#define IDC_lblFScan 1313
#define IDC_lblScanSummary 1320
#define IDC_lblScanned 1321
#define IDC_lblInfected 1322
#define IDC_lblFiles 1323
#define IDC_lblFilesScanned 1324
#define IDC_lblFilesInfected 1325
#define IDC_lblFolders 1326
#define IDC_lblFoldersScanned 1327
#define IDC_lblFoldersInfected 1328
#define IDC_lblKeys 1329
#define IDC_lblKeysScanned 1330
#define IDC_lblKeysInfected 1331
#define IDC_lblProcesses 1332
#define IDC_lblProcessesScanned 1333
#define IDC_lblProcessesInfected 1334
#define IDC_lblDetectedCaption 1335
#define IDC_lblDetected 1336
#define IDC_cmdAbort 1340
#define IDC_cmdNext 1341
#define IDC_cmdCancel 1342
#define IDC_lblRemaining 1343
#define IDC_lblPercent 1344

// frmScanSpy: SpyFrame, the results pane
#define IDC_SpyFrame 1400
#define IDC_ResultsHeader 1401
#define IDC_lblResults 1402
#define IDC_lblCount 1403
#define IDC_SpyListView 1404
#define IDC_lblEmpty 1405
#define IDC_cmdCheckAll 1406
#define IDC_cmdUnCheckAll 1407
#define IDC_cmdViewLog 1408
#define IDC_cmdCloseResults 1409

#define IDC_cmdDelete 1410
#define IDC_cmdExclude 1411
#define IDC_cmdBackup 1412
#define IDC_cmdContinue 1413

// frmResults; its IDC_cmdReport is on the page of the results and in frmLog, too
#define IDC_RemovalHeader 1600
#define IDC_lblRemovalHeading 1601
#define IDC_lblRemovalSummary 1602
#define IDC_lblObjects 1603
#define IDC_lstObjects 1604
#define IDC_cmdReport 1605
#define IDC_lblTotalCaption 1610  // six pairs: caption, value

// frmLog
#define IDC_txtFile 1630
#define IDC_lblFind 1631
#define IDC_txtFind 1632
#define IDC_cmdFind 1633
#define IDC_cmdSave 1634
#define IDC_cmdOpen 1635

// frmIgnore
#define IDC_IgnoreHeader 1640
#define IDC_lblIgnoreHeading 1641
#define IDC_lblIgnoreCount 1642
#define IDC_lblIgnoreEmpty 1643
#define IDC_IgnoreListView 1644
#define IDC_CmdRemove 1645
#define IDC_cmdHelp 1646

// frmBackup
#define IDC_BackupHeader 1660
#define IDC_lblBackupHeading 1661
#define IDC_lblBackupCount 1662
#define IDC_lblBackupEmpty 1663
#define IDC_BackupList 1664
#define IDC_cmdRestore 1665
#define IDC_cmdClean 1666

// frmBackupContents
#define IDC_ContentsHeader 1670
#define IDC_lblContentsHeading 1671
#define IDC_lblContentsText 1672
#define IDC_lblContentsEmpty 1673
#define IDC_ContentsList 1674

// InputBox
#define IDC_lblPrompt 1680
#define IDC_txtAnswer 1681

// frmAbout
#define IDC_AboutHeader 1700
#define IDC_lblAboutHeading 1701
#define IDC_lblAboutText 1702
#define IDC_cmdCopyForReport 1703
#define IDC_lblAboutCaption 1710  // pairs: caption, value

// frmTour
#define IDC_TourHeader 1750
#define IDC_lblTourHeading 1751
#define IDC_lblTourText 1752
#define IDC_lblTourTopic 1760  // pairs: heading, text

// frmSplash
#define IDC_lblSplashName 1501
#define IDC_lblSplashVersion 1502
#define IDC_lblSplashText 1503

// The tools: frmStartupManager, frmAdwareUninstaller, frmBHO
#define IDC_ToolHeader 2000
#define IDC_lblToolHeading 2001
#define IDC_lblToolText 2002
#define IDC_lblFilter 2003
#define IDC_txtFilter 2004
#define IDC_lstTool 2005
#define IDC_lblToolEmpty 2006
#define IDC_lblToolStatus 2007
#define IDC_cmdToolClose 2008
#define IDC_prgTool 2009
#define IDC_cmdDisable 2010
#define IDC_cmdToolRemove 2011
#define IDC_cmdApply 2012
#define IDC_cmdViewInfo 2013
#define IDC_cmdShowAll 2014
#define IDC_cmdShowSpies 2015

// frmAddTask
#define IDC_lblTaskLocation 2050
#define IDC_cboTaskLocation 2051
#define IDC_lblTaskName 2052
#define IDC_txtTaskName 2053
#define IDC_lblTaskProgram 2054
#define IDC_txtTaskProgram 2055
#define IDC_cmdTaskBrowse 2056
#define IDC_cmdTaskOk 2057
#define IDC_cmdTaskCancel 2058

// frmOptions
#define IDC_OptionsTabs 2100
#define IDC_CmdProceed 2101
#define IDC_cmdCancelOptions 2102
#define IDC_CmbLang 2103
#define IDC_cmdEditLanguagePackFile 2104
#define IDC_lblLang 2105
#define IDC_lblExplorerNote 2106
#define IDC_chkScanStartup 2107
#define IDC_chkAutoCheckForUpdate 2108
#define IDC_chkAutosaveLog 2109
#define IDC_chkExtraLogInfo 2110
#define IDC_chkExplorer 2111
#define IDC_chkSpywareAdware 2112
#define IDC_chkDialers 2113
#define IDC_chkKeyLoggers 2114
#define IDC_chkTrojans 2115
#define IDC_chkBHO 2116
#define IDC_chkAllCookies 2117
#define IDC_chkAdvancedScanning 2118
#define IDC_chkMarkChecked 2119
#define IDC_chkUseRegEdit 2120
#define IDC_ChkRemoveFile 2121
#define IDC_ChkAutoRemove 2122
#define IDC_chkBackupBeforeRemoval 2123
#define IDC_lblRefFileLocation 2124
#define IDC_txtRefFileLocation 2125
#define IDC_cmdBrowseRefFileLocation 2126
#define IDC_lblRefFileLocationHint 2127
#define IDC_lblLogfiles 2128
#define IDC_txtLogfiles 2129
#define IDC_cmdBrowseLogfiles 2130
#define IDC_lblLogfilesHint 2131
#define IDC_lblBackup 2132
#define IDC_txtBackup 2133
#define IDC_cmdBrowseBackup 2134
#define IDC_lblBackupHint 2135
