// SPDX-License-Identifier: MIT

// The start page: every entry of its side menu, every picture, link and entry of the menu bar does
// its work.
#include <windows.h>
#include <commctrl.h>

#include <algorithm>

#include "machine/file_utils.h"
#include "tests/win/ui_tool.h"

namespace scourwell::ui {
namespace {

constexpr char kWitness[] = "C:\\witness.txt";

RegistryWin registry;

// The texts of the side menu, from top to bottom.
std::vector<std::string> SideMenuTexts(HWND menu) {
  std::vector<std::string> texts;
  const auto count = static_cast<int>(Send(menu, LB_GETCOUNT, 0, 0));
  for (int i = 0; i < count; ++i) texts.push_back(ItemText(menu, LB_GETTEXT, i));
  return texts;
}

// Chooses an entry as the keyboard does.
void Choose(HWND top, const std::string& text) {
  const HWND menu = ReadyControl(top, IDC_MenuXP1);
  REQUIRE(menu);
  const std::vector<std::string> texts = SideMenuTexts(menu);
  // The last of them: a group may be called like its entry.
  std::size_t row = texts.size();
  while (row > 0 && texts[row - 1] != text) --row;
  REQUIRE_MESSAGE(row > 0, text);
  Send(menu, LB_SETCURSEL, row - 1, 0);
  PostMessageW(menu, WM_KEYDOWN, VK_RETURN, 1);
}

// The command lines that the stand-ins were started with since the last call.
std::string Witnessed(std::size_t starts) {
  const auto lines = [] {
    const std::string content = Content(kWitness);
    return static_cast<std::size_t>(std::count(content.begin(), content.end(), '\n'));
  };
  WaitFor([&] { return lines() >= starts; });
  const std::string content = Content(kWitness);
  DeleteFileA(kWitness);
  return content;
}

void StandIn(const std::string& path) {
  REQUIRE(CopyFileA("C:\\witness.exe", path.c_str(), FALSE));
}

void OpenWith(const std::string& type, const std::string& marker) {
  const std::string key = type + "\\shell\\open\\command";
  registry.SetValue(RootKey::ClassesRoot, type, marker, {kRegText, Z("")});
  registry.SetValue(RootKey::ClassesRoot, key, "", {kRegText, Z("C:\\witness.exe \"%1\"")});
}

struct Companion {
  const char* file;  // below the program folder
  const char* entry;
  int picture;
  int command;
  const char* method;
};
constexpr Companion kCompanions[] = {
    {"ScourwellPopup.exe", "Pop-up Blocker", IDC_imgPopupBlocker, IDM_mnuPopupBlocker,
     "imgPopupBlocker_Click"},
    {"Watch\\ScourwellWatch.exe", "Resident Watcher", IDC_imgResidentWatcher,
     IDM_mnuResidentWatcher, "imgResidentWatcher_Click"},
    {"ScourwellNet.exe", "Network Repair", IDC_imgNetworkRepair, IDM_mnuNetworkRepair,
     "imgNetworkRepair_Click"},
    {"Hijack\\ScourwellHijack.exe", "Hijack Scanner", IDC_imgHijackScanner, IDM_mnuHijackScanner,
     "imgHijackScanner_Click"},
    {"ScourwellWall.exe", "", IDC_imgFirewall, IDM_mnuFirewall, "imgFirewall_Click"},
    {"ScourwellUpdate.exe", "Live Update", IDC_lblCheckForupdates, IDM_mnuLiveUpdate,
     "lblCheckForupdates"},
};

std::string PathOf(const Companion& companion) {
  return std::string(kProgramFolder) + companion.file;
}

std::size_t Count(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++count;
  return count;
}

}  // namespace

TEST_SUITE_BEGIN("ui_home");

TEST_CASE("a first start: the side menu, the statistics and what the program works with") {
  PlantMachine();
  PlantContent(kReference,
               PlantedDefinitions().Value("SETTINGS", "UPDATE-FILE-NUMBER", "1-2").Text());
  Program program("");
  const HWND top = program.MainWindow();
  REQUIRE(top);
  REQUIRE(ReadyControl(top, IDC_imgSearch));
  std::string entries;
  for (const std::string& text : SideMenuTexts(ReadyControl(top, IDC_MenuXP1)))
    entries += text + "|";
  CHECK(entries ==
        "Scan|Start Scan|Scan Folder...|Tools|Backup Management|Ignore List|Startup Manager|Adware "
        "Uninstaller|Browser Helper Manager|Pop-up Blocker|Resident Watcher|Network Repair|Hijack "
        "Scanner|Configuration|Options|Live Update|Help|Help|");
  CHECK(Text(Control(top, IDC_lblScans)) == "0");
  CHECK(Text(Control(top, IDC_lblLastScan)) == "Never");
  CHECK(Text(Control(top, IDC_lblRemoved)) == "0");
  CHECK(Text(Control(top, IDC_lblLanguage)) == "English");
  CHECK(Text(Control(top, IDC_lblDefinitions)) == "1-2");
}

TEST_CASE("every entry, picture, link and menu entry opens its window") {
  struct Way {
    const char* entry;  // of the side menu
    int picture;        // or link; 0: none
    int command;
    const char* title;
  };
  PlantMachine();
  Program program("");
  const HWND top = program.MainWindow();
  REQUIRE(top);
  REQUIRE(ReadyControl(top, IDC_imgSearch));
  for (const Way& way : {
           Way{"Scan Folder...", 0, IDM_mnuScanFolder, "Browse"},
           Way{"Backup Management", IDC_imgQuarantine, IDM_mnuBackups, "Backup Management"},
           Way{"", IDC_lblOpenBackupList, IDM_mnuBackups, "Backup Management"},
           Way{"Ignore List", IDC_lblOpenIgnoreList, IDM_mnuIgnoreList, "Ignore List"},
           Way{"Startup Manager", 0, IDM_mnuStartupManager, "Startup Manager"},
           Way{"Adware Uninstaller", 0, IDM_mnuAdwareUninstaller, "Adware Uninstaller"},
           Way{"Browser Helper Manager", 0, IDM_mnuBrowserHelpers, "Browser Helper Manager"},
           Way{"Options", IDC_imgSettings, IDM_mnuOptions, "Options"},
       }) {
    const std::string entry = way.entry;
    CAPTURE(entry);
    CAPTURE(way.picture);
    for (int turn = 0; turn < 3; ++turn) {
      if (turn == 0 && entry.empty()) continue;
      if (turn == 1 && way.picture == 0) continue;
      if (turn == 0) Choose(top, entry);
      if (turn == 1) Click(ReadyControl(top, way.picture));
      if (turn == 2) Command(top, way.command);
      const HWND window = program.Window(way.title);
      REQUIRE_MESSAGE(window, turn);
      CHECK(WaitFor([&] { return !IsWindowEnabled(top); }));
      CHECK(WaitFor([&] {
        // What a tool has to say when its list is empty.
        const HWND box = GetLastActivePopup(window);
        if (box && box != window) PostMessageW(box, WM_COMMAND, IDOK, 0);
        PostMessageW(window, WM_CLOSE, 0, 0);
        return !IsWindow(window) && IsWindowEnabled(top);
      }));
    }
  }
  Command(top, IDM_mnuAbout);
  const HWND about = program.WindowOfClass("frmAbout");
  REQUIRE(about);
  PostMessageW(about, WM_CLOSE, 0, 0);
  CHECK(WaitFor([&] { return !IsWindow(about); }));
  CHECK(Errors() == "");
}

TEST_CASE("the scan picture and the side menu scan; with nothing ticked both say so") {
  PlantMachine();
  Program program("");
  const HWND top = program.MainWindow();
  REQUIRE(top);
  for (const bool picture : {true, false}) {
    REQUIRE(ReadyControl(top, IDC_imgSearch));
    if (picture) {
      Click(Control(top, IDC_imgSearch));
    } else {
      Choose(top, "Start Scan");
    }
    REQUIRE(ReadyControl(top, IDC_cmdAbort));
    CHECK(Control(top, IDC_MenuXP1) == nullptr);
    Command(top, IDM_mnuOptions);  // nothing while a scan runs
    Click(ReadyControl(top, IDC_cmdNext, 60000));
    Click(ReadyControl(top, IDC_cmdCloseResults));
  }
  REQUIRE(ReadyControl(top, IDC_imgSearch));
  CHECK(program.Window("Options", 200) == nullptr);
  CHECK(Text(Control(top, IDC_lblScans)) == "2");
  CHECK(Text(Control(top, IDC_lblLastScan)).find(" @ ") == 8);
  const HWND tree = Control(top, IDC_TreeView1);
  Send(tree, TVM_SELECTITEM, TVGN_CARET, Send(tree, TVM_GETNEXTITEM, TVGN_ROOT, 0));
  PostMessageW(tree, WM_KEYDOWN, VK_SPACE, 0);
  REQUIRE(WaitFor([&] { return !TreeRows(tree)[0].checked; }));
  for (const int command : {0, IDM_mnuStartScan}) {
    command ? Command(top, command) : Click(Control(top, IDC_imgSearch));
    const HWND box = program.Window("Information");
    REQUIRE(box);
    CHECK(Text(GetDlgItem(box, 0xFFFF)) == "No scanning options selected.");
    Answer(box, IDOK);
    CHECK(Control(top, IDC_imgSearch) != nullptr);
  }
}

TEST_CASE("companion programs that are there are started, wherever they are chosen") {
  PlantMachine();
  DeleteFileA(kWitness);
  for (const Companion& each : kCompanions) {
    CreateDirectoryA(std::string(FolderPart(PathOf(each))).c_str(), nullptr);
    StandIn(PathOf(each));
  }
  {
    Program program("");
    const HWND top = program.MainWindow();
    REQUIRE(top);
    for (const Companion& each : kCompanions) {
      const std::string file = each.file;
      CAPTURE(file);
      Click(ReadyControl(top, each.picture));
      if (*each.entry) Choose(top, each.entry);
      Command(top, each.command);
      const std::size_t starts = *each.entry ? 3 : 2;
      const std::string witnessed = Witnessed(starts);
      CHECK(Count(witnessed, file) == starts);
      CHECK(Count(witnessed, "/S:244\r\n") == (each.command == IDM_mnuLiveUpdate ? starts : 0));
    }
    CHECK(program.Close());
  }
  CHECK(Errors() == "");
  for (const Companion& each : kCompanions) Erase(PathOf(each));
}

TEST_CASE("companion programs that are missing leave a record each, and nothing else happens") {
  PlantMachine();
  Program program("");
  const HWND top = program.MainWindow();
  REQUIRE(top);
  REQUIRE(ReadyControl(top, IDC_imgSearch));
  CHECK(Errors() == "");
  CHECK(Text(Control(top, IDC_lblCompanionsFolder)).ends_with("C:\\Scourwell"));
  for (const Companion& each : kCompanions) {
    const bool link = each.picture == IDC_lblCheckForupdates;
    CHECK(IsWindowVisible(Control(top, each.picture)) == link);
    link ? Click(Control(top, each.picture)) : Command(top, each.command);
    const std::string file(FileNamePart(PathOf(each)));
    CHECK_MESSAGE(WaitFor([&] { return Count(Errors(), file) == 1; }, 5000), Errors());
  }
  Choose(top, "Resident Watcher");
  CHECK(WaitFor([] { return Count(Errors(), "ScourwellWatch.exe") == 2; }));
  CHECK(IsWindowEnabled(top));
}

TEST_CASE("web pages are offered once the settings name them, and nothing else is opened") {
  PlantMachine();
  DeleteFileA(kWitness);
  OpenWith("http", "URL Protocol");
  const auto name = [](const char* page, const char* address) {
    registry.SetValue(RootKey::CurrentUser, "Software\\Scourwell\\Web", page,
                      {kRegText, Z(address)});
  };
  name("Home", "C:\\witness.exe");
  {
    Program program("");
    const HWND top = program.MainWindow();
    REQUIRE(top);
    const HWND menu = ReadyControl(top, IDC_MenuXP1);
    CHECK(SideMenuTexts(menu).back() == "Help");
    CHECK(GetMenuState(GetMenu(top), IDM_mnuVisitUsOnline, MF_BYCOMMAND) == UINT(-1));
    CHECK(program.Close());
  }
  name("Home", "http://www.scourwell.example/");
  name("Support", "http://www.scourwell.example/support/");
  Program program("");
  const HWND top = program.MainWindow();
  REQUIRE(top);
  Command(top, IDM_mnuOnlineHelp);
  CHECK(Count(Witnessed(1), "http://www.scourwell.example/support/") == 1);
  Choose(top, "Visit Us Online");
  CHECK(Count(Witnessed(1), "http://www.scourwell.example/\"") == 1);
  Command(top, IDM_mnuVisitUsOnline);
  CHECK(Count(Witnessed(1), "http://www.scourwell.example/\"") == 1);
  CHECK(Errors() == "");
}

TEST_SUITE_END();

}  // namespace scourwell::ui
