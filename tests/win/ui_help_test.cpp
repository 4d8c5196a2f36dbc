// SPDX-License-Identifier: MIT

// F1 in the windows of the built program. A stand-in for the browser notes which page it is to
// show.
#include "machine/cregister.h"
#include "tests/win/ui_tool.h"

namespace scourwell::ui {
namespace {

constexpr char kHelp[] = "C:\\Scourwell\\Help\\help.chm";
constexpr char kAway[] = "C:\\Scourwell\\Help\\away.chm";
constexpr char kAsked[] = "C:\\planted\\asked.txt";
constexpr char kCommand[] = "ScourwellPage\\shell\\open\\command";

FilesWin files;
RegistryWin registry;

// What opens pages, as long as it lives; and no help file, so that they are opened.
struct Browser {
  explicit Browser(const std::string& command) {
    CRegister classes(registry);
    before = classes.QueryString(RootKey::ClassesRoot, ".html", "");
    REQUIRE(classes.SetString(RootKey::ClassesRoot, ".html", "", "ScourwellPage") == kRegOk);
    REQUIRE(classes.SetString(RootKey::ClassesRoot, kCommand, "", command) == kRegOk);
    REQUIRE(files.Move(kHelp, kAway).ok());
  }
  ~Browser() {
    CRegister(registry).SetString(RootKey::ClassesRoot, ".html", "", before);
    static_cast<void>(files.Move(kAway, kHelp));
  }
  std::string before;
};

// To the control that has the keyboard, as the system sends it.
void PressF1(HWND control) {
  REQUIRE(control);
  PostMessageW(control, WM_KEYDOWN, VK_F1, 0x003B0001);
  PostMessageW(control, WM_KEYUP, VK_F1, static_cast<LPARAM>(0xC03B0001));
}

void CheckPage(HWND control, const std::string& page) {
  static_cast<void>(files.EraseFile(kAsked));
  PressF1(control);
  CAPTURE(page);
  CHECK(WaitFor([&] { return Content(kAsked).find("\\Help\\" + page) != std::string::npos; }));
}

}  // namespace

TEST_SUITE_BEGIN("ui_help");

TEST_CASE("F1 asks for the page of the window in front") {
  PlantMachine();
  const Browser browser("C:\\windows\\system32\\cmd.exe /c echo %1>" + std::string(kAsked));
  Program program("");
  const HWND top = program.MainWindow();
  CheckPage(ReadyControl(top, IDC_imgSearch), "start.html");
  {
    Tool tool(program, IDM_mnuStartupManager, "Startup Manager");
    CheckPage(tool.list, "startup.html");
    tool.Close();
  }
  {
    Command(top, IDM_mnuBackups);
    const HWND backups = program.Window("Backup Management");
    CheckPage(ReadyControl(backups, IDC_BackupList), "backups.html");
    static_cast<void>(files.EraseFile(kAsked));
    Click(ReadyControl(backups, IDC_cmdHelp));
    CHECK(WaitFor([&] { return Content(kAsked).find("backups.html") != std::string::npos; }));
    PostMessageW(backups, WM_CLOSE, 0, 0);
    CHECK(WaitFor([&] { return !IsWindow(backups); }));
  }
  Click(ReadyControl(top, IDC_imgSearch));
  const HWND next = ReadyControl(top, IDC_cmdNext);
  CheckPage(next, "scan.html");
  Click(next);
  CheckPage(ReadyControl(top, IDC_SpyListView), "results.html");
  CHECK(program.Close());
  CHECK(Errors().find("Method: ShowHelp, File: " + std::string(kHelp)) != std::string::npos);
}

TEST_CASE("the help viewer blocks no dialog and ends with the program") {
  PlantMachine();
  Program program("");
  Tool tool(program, IDM_mnuStartupManager, "Startup Manager");
  PressF1(tool.list);
  REQUIRE(program.Window("Scourwell Help"));
  tool.Close();
  CHECK(program.Close());
  CHECK(Errors() == "");
}

TEST_CASE("help that nothing can open is named in a message") {
  PlantMachine();
  const Browser browser("C:\\no such program.exe %1");
  Program program("");
  const HWND top = program.MainWindow();
  PressF1(ReadyControl(top, IDC_imgSearch));
  const HWND box = program.Window("Information");
  REQUIRE(box);
  CHECK(Text(GetDlgItem(box, 0xFFFF)).find("C:\\Scourwell\\Help\\start.html") != std::string::npos);
  Answer(box, IDOK);
  CHECK(program.Close());
  CHECK(Errors().find("File: C:\\Scourwell\\Help\\start.html") != std::string::npos);
}

TEST_SUITE_END();

}  // namespace scourwell::ui
