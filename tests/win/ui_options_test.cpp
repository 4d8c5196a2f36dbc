// SPDX-License-Identifier: MIT

// The options dialog, driven through its window.
#include <windows.h>
#include <commctrl.h>

#include "machine/cregister.h"
#include "tests/win/ui_tool.h"

namespace scourwell::ui {
namespace {

constexpr RootKey kUser = RootKey::CurrentUser;
constexpr char kRun[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr char kFolderVerb[] = "Software\\Classes\\Directory\\shell\\Scourwell";
constexpr char kDriveVerb[] = "Software\\Classes\\Drive\\shell\\Scourwell";
constexpr char kLang[] = "C:\\Scourwell\\Lang\\";
constexpr int kTabs = 4;

FilesWin files;
RegistryWin registry;

struct Box {
  int tab;
  int id;
  const char* section;
  const char* key;
  const char* first;
  const char* changed;
};

constexpr Box kBoxes[] = {
    {0, IDC_chkAutoCheckForUpdate, "AutoCheckForUpdate", "AutoCheckForUpdate", "False", "True"},
    {0, IDC_chkAutosaveLog, "AutoSave", "AutoSave", "True", "False"},
    {0, IDC_chkExtraLogInfo, "ScanSections", "ExtraLogInfo", "False", "True"},
    {1, IDC_chkSpywareAdware, "ScanSections", "SpywareAdware", "True", "False"},
    {1, IDC_chkDialers, "ScanSections", "Dialers", "True", "False"},
    {1, IDC_chkKeyLoggers, "ScanSections", "KeyLoggers", "True", "False"},
    {1, IDC_chkTrojans, "ScanSections", "Trojans", "True", "False"},
    {1, IDC_chkBHO, "ScanSections", "BHO", "True", "False"},
    {1, IDC_chkAllCookies, "ScanSections", "AllCookies", "True", "False"},
    {1, IDC_chkMarkChecked, "Mark", "Checked", "y", "n"},
    {2, IDC_ChkRemoveFile, "DeleteAfterReboot", "DeleteAfterReboot", "True", "False"},
    {2, IDC_chkUseRegEdit, "UseRegEdit", "UseRegEdit", "True", "False"},
    {2, IDC_ChkAutoRemove, "AutoRemove", "AutoRemove", "False", "True"},
    {2, IDC_chkBackupBeforeRemoval, "Backup", "BackupBeforeRemoval", "True", "False"},
};

std::string RunValue() { return CRegister(registry).QueryString(kUser, kRun, "ZURANTISPY"); }

struct Options {
  explicit Options(Program& opened) : program(opened) {
    const HWND top = program.MainWindow();
    REQUIRE(top);
    REQUIRE(ReadyControl(top, IDC_imgSearch));
    Command(top, IDM_mnuOptions);
    window = program.Window("Options");
    REQUIRE(window);
    tabs = ReadyControl(window, IDC_OptionsTabs);
    REQUIRE(tabs);
  }
  void Tab(int tab) {
    Send(tabs, TCM_SETCURFOCUS, static_cast<WPARAM>(tab), 0);
    CHECK(Send(tabs, TCM_GETCURSEL, 0, 0) == tab);
  }
  // A control of the tab in front.
  HWND At(int id) {
    const HWND control = Control(window, id);
    CAPTURE(id);
    REQUIRE(control);
    return control;
  }
  bool Checked(int id) { return Send(At(id), BM_GETCHECK, 0, 0) == BST_CHECKED; }
  void Toggle(int id) {
    const bool before = Checked(id);
    Click(At(id));
    CHECK(WaitFor([&] { return Checked(id) != before; }));
  }
  void Press(int button) {
    Click(At(button));
    CHECK(WaitFor([&] { return !IsWindow(window); }));
  }
  std::string Languages() {
    const HWND combo = At(IDC_CmbLang);
    std::string names;
    const auto count = static_cast<int>(Send(combo, CB_GETCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) names += ItemText(combo, CB_GETLBTEXT, i) + ' ';
    return names;
  }
  int Language() { return static_cast<int>(Send(At(IDC_CmbLang), CB_GETCURSEL, 0, 0)); }
  // As the user does: the dialog hears of it.
  void ChooseLanguage(int index) {
    Send(At(IDC_CmbLang), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    Send(GetParent(At(IDC_CmbLang)), WM_COMMAND, MAKEWPARAM(IDC_CmbLang, CBN_SELCHANGE),
         reinterpret_cast<LPARAM>(At(IDC_CmbLang)));
  }

  Program& program;
  HWND window = nullptr;
  HWND tabs = nullptr;
};

void Plant() {
  PlantMachine();
  CRegister(registry).SetString(kUser, kRun, "ZURANTISPY", "x");
  registry.DeleteValue(kUser, kRun, "ZURANTISPY");
  // Other tests leave packs of their own.
  std::vector<std::string> packs;
  static_cast<void>(files.List(kLang + std::string("*.ini"), [&](const DirEntry& entry) {
    if (entry.name != "English.ini") packs.push_back(entry.name);
    return true;
  }));
  for (const std::string& pack : packs) Erase(kLang + pack);
}

}  // namespace

TEST_SUITE_BEGIN("ui_options");

TEST_CASE("a first start shows the defaults, and what is changed is stored with OK only") {
  Plant();
  Program program("");
  {
    Options options(program);
    for (int tab = 0; tab < kTabs; ++tab) {
      options.Tab(tab);
      for (const Box& box : kBoxes) {
        const std::string key = box.key;
        CAPTURE(key);
        if (box.tab != tab) continue;
        CHECK(options.Checked(box.id) == (std::string(box.first) != "False"));
        options.Toggle(box.id);
      }
    }
    options.Press(IDC_cmdCancelOptions);
  }
  for (const Box& box : kBoxes) CHECK(Setting(box.section, box.key) == box.first);
  CreateDirectoryA("C:\\planted\\logs", nullptr);
  {
    Options options(program);
    for (const Box& box : kBoxes) {
      options.Tab(box.tab);
      options.Toggle(box.id);
    }
    options.Tab(3);
    CHECK(Text(options.At(IDC_txtLogfiles)) == "C:\\Scourwell");
    CHECK(Text(options.At(IDC_txtBackup)) == "C:\\Scourwell");
    CHECK(Text(options.At(IDC_txtRefFileLocation)) == "C:\\Scourwell\\Ini");
    CHECK_FALSE(Control(options.window, IDC_lblBackupHint));
    SetText(options.At(IDC_txtLogfiles), "C:\\planted\\logs");
    SetText(options.At(IDC_txtBackup), "Q:\\no such folder");
    Send(GetParent(options.At(IDC_txtBackup)), WM_COMMAND, MAKEWPARAM(IDC_txtBackup, EN_KILLFOCUS),
         0);
    CHECK(Control(options.window, IDC_lblBackupHint));
    CHECK_FALSE(Control(options.window, IDC_lblLogfilesHint));
    options.Press(IDC_CmdProceed);
  }
  for (const Box& box : kBoxes) CHECK(Setting(box.section, box.key) == box.changed);
  CHECK(Setting("Path", "LogPath") == "C:\\planted\\logs");
  CHECK(Setting("Path", "BackupPath") == "Q:\\no such folder");
  CHECK(program.Close());
  Program again("");
  Options options(again);
  for (const Box& box : kBoxes) {
    options.Tab(box.tab);
    const std::string key = box.key;
    CAPTURE(key);
    CHECK(options.Checked(box.id) == (std::string(box.changed) == "True"));
  }
  options.Tab(3);
  CHECK(Text(options.At(IDC_txtLogfiles)) == "C:\\planted\\logs");
  CHECK(Text(options.At(IDC_txtBackup)) == "C:\\Scourwell");  // what was typed does not exist
  options.Press(IDC_cmdCancelOptions);
  CHECK(again.Close());
  // On a slow machine the timer has looked for the updater meanwhile, which is not installed here.
  const std::string errors = Errors();
  CAPTURE(errors);
  CHECK((errors.empty() || errors.find("Timer1_Timer") != std::string::npos));
}

TEST_CASE("advanced scanning cannot be switched on; scanning at the start acts at once") {
  Plant();
  Program program("");
  {
    Options options(program);
    options.Toggle(IDC_chkScanStartup);
    CHECK(WaitFor([] { return RunValue() == "\"C:\\Scourwell\\Scourwell.exe\" /STARTUP"; }));
    options.Press(IDC_cmdCancelOptions);
  }
  CHECK_FALSE(RunValue().empty());
  Options options(program);
  options.Toggle(IDC_chkScanStartup);
  CHECK(WaitFor([] { return RunValue().empty(); }));
  options.Tab(1);
  options.Toggle(IDC_chkAdvancedScanning);
  Click(options.At(IDC_CmdProceed));
  HWND box = nullptr;
  CHECK(WaitFor([&] {
    box = GetLastActivePopup(options.window);
    return box && box != options.window;
  }));
  const std::string shown = Text(GetDlgItem(box, 0xFFFF));
  CHECK(shown.find("can't be switched on here") != std::string::npos);
  CHECK(shown.find('#') == std::string::npos);
  CHECK_FALSE(GetDlgItem(box, IDCANCEL));
  Answer(box, IDOK);
  CHECK(WaitFor([&] { return !IsWindow(options.window); }));
  CHECK(Setting("ScanSections", "AdvancedScanning") == "False");
  CHECK(Setting("RunStartup", "RunStartup") == "False");
  CHECK(program.Close());
  CHECK(Errors() == "");
}

TEST_CASE("packs are listed and chosen, the verb follows the language, a lost pack does no harm") {
  Plant();
  const std::string lang = kLang;
  PlantContent(lang + "Deutsch.ini",
               "[Adware Language Pack]\r\n17341=Mit Scourwell pr\xFC"
               "fen\r\n");
  PlantContent(lang + "Deutsch.bmp", "BM no picture");
  const auto verb = [](const char* key) { return CRegister(registry).QueryString(kUser, key, ""); };
  Program program("");
  {
    Options options(program);
    CHECK(options.Languages() == "Deutsch English ");
    CHECK(options.Language() == 1);
    CHECK_FALSE(options.Checked(IDC_chkExplorer));
    options.Toggle(IDC_chkExplorer);
    CHECK(verb(kFolderVerb).empty());
    options.Press(IDC_CmdProceed);
  }
  for (const std::string& key : {std::string(kFolderVerb), std::string(kDriveVerb)}) {
    CHECK(verb(key.c_str()) == "Scan with Scourwell");
    CHECK(verb((key + "\\command").c_str()) == "\"C:\\Scourwell\\Scourwell.exe\" \"%1\"");
  }
  {
    Options options(program);
    CHECK(options.Checked(IDC_chkExplorer));
    options.ChooseLanguage(0);
    options.Press(IDC_CmdProceed);
  }
  CHECK(Setting("Language", "Name") == "Deutsch.ini");
  CHECK(verb(kDriveVerb) ==
        "Mit Scourwell pr\u00FC"
        "fen");
  for (const char* file : {"Deutsch.ini", "Deutsch.bmp"}) Erase(lang + file);
  {
    Options options(program);
    CHECK(options.Language() == -1);
    CHECK_FALSE(IsWindowEnabled(options.At(IDC_cmdEditLanguagePackFile)));
    options.Toggle(IDC_chkExplorer);
    options.Press(IDC_CmdProceed);
  }
  CHECK(Setting("Language", "Name") == "Deutsch.ini");
  for (const char* key : {kFolderVerb, kDriveVerb}) {
    CHECK(registry.TryOpen(kUser, key, kKeyRead) == kRegNotFound);
  }
  CHECK(program.Close());
  const std::string errors = Errors();
  CHECK(errors.find("The picture of a language is damaged") != std::string::npos);
}

TEST_CASE("the program takes a drive as the verb hands it over") {
  Plant();
  Program program("\"C:\\\"");
  const HWND top = program.MainWindow();
  REQUIRE(top);
  REQUIRE(ReadyControl(top, IDC_cmdNext, 60000));
  CHECK(Text(Control(top, IDC_lblFilesScanned)).size() >= 5);  // all of the drive
  CHECK(program.Close());
  CHECK(Errors() == "");
}

TEST_CASE("where Explorer does not look for the verb, its box is grey and says why") {
  Plant();
  SetWindowsVersion("win98");
  Program program("");
  Options options(program);
  CHECK_FALSE(IsWindowEnabled(options.At(IDC_chkExplorer)));
  CHECK(Control(options.window, IDC_lblExplorerNote));
  options.Press(IDC_CmdProceed);
  CHECK(registry.TryOpen(kUser, kFolderVerb, kKeyRead) == kRegNotFound);
  CHECK(program.Close());
  CHECK(Errors() == "");
}

TEST_SUITE_END();

}  // namespace scourwell::ui
