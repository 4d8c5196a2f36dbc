// SPDX-License-Identifier: MIT
#include "tests/win/looks_windows.h"

#include <commctrl.h>

#include "platform/win/files_win.h"
#include "platform/win/registry_win.h"

namespace scourwell::ui {
namespace {

constexpr char kVersion[] = "Software\\Microsoft\\Windows\\CurrentVersion\\";
constexpr char kIgnored[] = "C:\\Scourwell\\ignorespylist.txt";
constexpr DWORD kScanTime = 60000;
constexpr char kMessageBox[] = "#32770";

// Of the main window; frmStartupManager has its own.
const std::vector<int> kMenuBar = {17010, 17158, 17014};

void Press(Tour& tour, int id) {
  const HWND button = ReadyControl(tour.top, id, kScanTime);
  REQUIRE_MESSAGE(button, id);
  Click(button);
}

// Answers the message box that is coming.
void Answer(Tour& tour, int button) {
  const HWND box = tour.program.WindowOfClass(kMessageBox, 30000);
  REQUIRE(box);
  PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
  CHECK(WaitFor([&] { return !IsWindow(box); }));
}

template <int id>
void Choose(Tour& tour) {
  REQUIRE(ReadyControl(tour.top, IDC_imgSearch, kScanTime));
  Command(tour.top, id);
}

void ShowHome(Tour& tour) { REQUIRE(ReadyControl(tour.top, IDC_imgSearch)); }

template <int tab>
void ShowOptions(Tour& tour) {
  Choose<IDM_mnuOptions>(tour);
  const HWND options = tour.program.WindowOfClass("frmOptions");
  Send(ReadyControl(options, IDC_OptionsTabs), TCM_SETCURFOCUS, tab, 0);
}

void AddTask(Tour& tour) {
  Choose<IDM_mnuStartupManager>(tour);
  const HWND manager = tour.program.WindowOfClass("frmStartupManager");
  REQUIRE(ReadyControl(manager, IDC_lstTool));
  Command(manager, IDM_keyAddTask);
}

void EmptyIgnoreList(Tour& tour) {
  Choose<IDM_mnuIgnoreList>(tour);
  const HWND manager = tour.program.WindowOfClass("frmIgnore");
  REQUIRE(ReadyControl(manager, IDC_IgnoreListView));
  Click(ReadyControl(manager, IDC_cmdCheckAll));
  Click(ReadyControl(manager, IDC_CmdRemove));
  CHECK(WaitFor([&] { return ListRows(Control(manager, IDC_IgnoreListView)).empty(); }));
}

void Scan(Tour& tour) {
  Press(tour, IDC_imgSearch);
  REQUIRE(ReadyControl(tour.top, IDC_cmdNext, kScanTime));
}

void ShowResults(Tour& tour) {
  Press(tour, IDC_cmdNext);
  REQUIRE(ReadyControl(tour.top, IDC_SpyListView));
}

void ViewLog(Tour& tour) { Press(tour, IDC_cmdViewLog); }
void AskForName(Tour& tour) { Press(tour, IDC_cmdBackup); }

void Delete(Tour& tour) {
  Press(tour, IDC_cmdDelete);
  Answer(tour, IDOK);
}

void EmptyResults(Tour& tour) {
  const HWND list = ReadyControl(tour.top, IDC_SpyListView);
  REQUIRE(list);
  // Row by row: what is gone cannot be checked.
  for (std::size_t left = ListRows(list).size(); left > 0; --left) {
    SelectRow(list, 0);
    Command(GetParent(list), IDM_mnuExclude);
    Answer(tour, IDYES);
    CHECK(WaitFor([&] { return ListRows(list).size() < left; }));
  }
}

// For the tools.
void PlantPrograms() {
  RegistryWin registry;
  const auto set = [&](const char* key, const char* name, const std::string& value) {
    registry.SetValue(RootKey::LocalMachine, kVersion + std::string(key), name,
                      {kRegText, value + '\0'});
  };
  set("Uninstall\\planted bar", "DisplayName", "The Planted Bar");
  set("Uninstall\\planted bar", "UninstallString",
      "\"C:\\Program Files\\Planted Bar\\uninstall.exe\" /quiet");
  set("Uninstall\\zzz last", "DisplayName", "The last one is not listed");
  for (const char* name : {"Planted", "Planted Update Checker"}) {
    set("Run", name, "\"C:\\Program Files\\Planted\\planted.exe\" /start");
  }
}

void LeaveForBackups(Tour& tour) {
  Press(tour, IDC_cmdCloseResults);
  Choose<IDM_mnuBackups>(tour);
}

void ShowContents(Tour& tour) {
  Choose<IDM_mnuBackups>(tour);
  Click(ReadyControl(tour.program.WindowOfClass("frmBackup"), IDC_cmdRestore));
}

}  // namespace

std::span<const LooksWindow> LooksWindows() {
  static const LooksWindow kWindows[] = {
      {"home", nullptr, ShowHome, true, kMenuBar},
      {"tour", "frmTour", Choose<IDM_mnuTour>, true, {}},
      {"about", "frmAbout", Choose<IDM_mnuAbout>, true, {}},
      {"startup-manager",
       "frmStartupManager",
       Choose<IDM_mnuStartupManager>,
       false,
       {17206, 17211, 17214}},
      {"add-task", "frmAddTask", AddTask, true, {}},
      {"adware-uninstaller", "frmAdwareUninstaller", Choose<IDM_mnuAdwareUninstaller>, false, {}},
      {"browser-helpers", "frmBHO", Choose<IDM_mnuBrowserHelpers>, false, {}},
      {"options-general", "frmOptions", ShowOptions<0>, true, {}},
      {"options-scanning", "frmOptions", ShowOptions<1>, true, {}},
      {"options-removal", "frmOptions", ShowOptions<2>, true, {}},
      {"options-paths", "frmOptions", ShowOptions<3>, true, {}},
      {"ignore-list", "frmIgnore", Choose<IDM_mnuIgnoreList>, false, {}},
      {"ignore-list-empty", "frmIgnore", EmptyIgnoreList, false, {}},
      {"backups-empty", "frmBackup", Choose<IDM_mnuBackups>, true, {}},
      {"scan", nullptr, Scan, true, kMenuBar},
      {"results", nullptr, ShowResults, true, kMenuBar},
      {"log", "frmLog", ViewLog, true, {}},
      {"name-prompt", "InputBox", AskForName, true, {}},
      {"removal", "frmResults", Delete, true, {}},
      {"results-empty", nullptr, EmptyResults, true, kMenuBar},
      {"backups", "frmBackup", LeaveForBackups, true, {}},
      {"backup-contents", "frmBackupContents", ShowContents, true, {}},
  };
  return kWindows;
}

void PlantForLooks(bool demonstration) {
  if (!demonstration) PlantMachine();
  const std::string names = test::Definitions().Entry("ADRE", {"WCL"}, {"planted bar"}).Text();
  PlantContent(kReference, Content(kReference) + names);
  PlantPrograms();
  PlantContent(kIgnored,
               "\"Spy File\",\"C:\\planted\\deep\\excluded.dll\",\"Adware.One\"\r\n"
               "\"Spy Folder\",\"C:\\Program Files\\Excluded Folder\",\"Adware.Home\"\r\n");
  std::vector<std::string> backups;
  static_cast<void>(
      FilesWin().List(std::string(kProgramFolder) + "*.qzp", [&](const DirEntry& entry) {
        backups.push_back(kProgramFolder + entry.name);
        return true;
      }));
  for (const std::string& path : backups) Erase(path);
}

}  // namespace scourwell::ui
