// SPDX-License-Identifier: MIT

// The built program on a machine of its own, driven through its real windows.
#include "platform/win/desktop_win.h"
#include "tests/win/ui_machine.h"

namespace scourwell::ui {
namespace {

constexpr char kLongRule[] = "==========================================================\r\n";

std::size_t Count(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++count;
  return count;
}

// Waits until the log ends with its closing block of that number.
bool LogHasClosed(std::size_t times) {
  return WaitFor([&] { return Count(LogText(), "Is Windows Me: ") == times && LogIsComplete(); },
                 60000);
}

}  // namespace

TEST_SUITE_BEGIN("ui");

TEST_CASE("an unattended scan finds what is planted, and its log names the system") {
  struct Row {
    const char* version;
    const char* platform;
    const char* number;
    const char* is;
  };
  for (const Row& row : {Row{"", "Windows XP", "v6.1, Build 7601", "XP 2K NT "},
                         {"win95", "Windows 95", "v4.0, Build 950", "9x 95 "},
                         {"win98", "Windows 98", "v4.10, Build 2222", "9x 95 98 "},
                         {"winme", "Windows Me", "v4.90, Build 3000", "9x 95 98 Me "},
                         {"nt40", "Windows NT", "v4.0, Build 1381", "NT "},
                         {"win2k", "Windows 2000", "v5.0, Build 2195", "2K NT "},
                         {"winxp", "Windows XP", "v5.1, Build 2600", "XP 2K NT "}}) {
    const std::string platform = row.platform;
    CAPTURE(platform);
    PlantMachine();
    SetWindowsVersion(row.version);
    Program program("/Startup");
    const HWND top = program.MainWindow();
    REQUIRE(top);
    REQUIRE(WaitFor(LogIsComplete, 60000));
    const std::string log = LogText();
    const auto logged = [&](const std::string& text) { return log.find(text) != log.npos; };
    CHECK(logged(ExpectedDriveSection() + "\r\n\r\n" + kLongRule + "Components found: 3\r\n" +
                 kLongRule + "\r\nScan finished on "));
    CHECK(logged("\r\nSystem information\r\n\r\n\r\n" + std::string(kLongRule) +
                 "Application Version: 1.0.0\r\n" + kLongRule + "Major Version: "));
    CHECK(logged("\r\nPlatform: " + platform + "\r\nPlatform Version: " + platform + " " +
                 row.number + "\r\n"));
    // The phases follow the nodes of the scope.
    std::size_t at = 0;
    for (const char* section : {"Memory scan\r\n", "Registry scan\r\n", "Cookie scan\r\n",
                                "Folder scan\r\n", "File scan\r\n", "Components found:"}) {
      const std::size_t next = log.find(section, at);
      CHECK_MESSAGE(next != std::string::npos, section);
      at = std::max(at, next == std::string::npos ? 0 : next);
    }
    std::string is;
    for (const std::string name : {"XP", "2K", "NT", "9x", "95", "98", "Me"}) {
      if (logged("\r\nIs Windows " + name + ": True\r\n")) is += name + " ";
    }
    CHECK(is == row.is);
    CheckResults(top);
    CHECK(program.Close());
    CHECK(program.ExitCode() == 0);
    CHECK(ScanLogs().size() == 1);
    CHECK(Setting("Statistics", "NUMBER OF SCANS") == "1");
    CHECK(Errors() == "");
  }
}

TEST_CASE("a first start fills the store with the defaults") {
  PlantMachine();
  Program program("");
  REQUIRE(program.MainWindow());
  REQUIRE(program.Close());
  CHECK(Setting("AutoSave", "AutoSave") == "True");
  CHECK(Setting("Path", "DefinitionsPath") == "C:\\Scourwell\\Ini");
  CHECK(ProfilesWin().ReadProfile("Setting", "DEFINITIONS_FILE_LOCATION",
                                  "C:\\Scourwell\\Setting.ini") == "C:\\Scourwell\\Ini");
  CHECK(ScanLogs().empty());
}

TEST_CASE("a path on the command line is scanned alone, without the tree") {
  PlantMachine();
  PlantFile("C:\\planted\\spyone.dll", 1);            // beside the folder, not in it
  Program program("\"planted\\deep\\SpyHome\\..\"");  // relative, in quotes, with a step back
  REQUIRE(program.MainWindow());
  REQUIRE(WaitFor(LogIsComplete, 60000));
  CHECK(Control(program.MainWindow(), IDC_TreeView1) == nullptr);
  CHECK(LogText().starts_with(ExpectedDriveSection()));
  Erase("C:\\planted\\spyone.dll");
}

TEST_CASE("a folder below what the definitions name gives a clean result") {
  PlantMachine();
  CreateDirectoryA("C:\\clean place", nullptr);
  PlantFile("C:\\clean place\\readme.txt", 1);
  Program program("C:\\clean place");
  const HWND top = program.MainWindow();
  REQUIRE(top);
  REQUIRE(WaitFor(LogIsComplete, 60000));
  CHECK(LogText().find("Components found: 0\r\n") != std::string::npos);
  const HWND next = ReadyControl(top, IDC_cmdNext);
  CHECK(Text(Control(top, IDC_lblPercent)) == "100 %");
  CHECK(Text(top) == "Scourwell 1.0 Rev.0");  // without the percentage of the scan
  Click(next);
  const HWND box = program.Window("Information");
  REQUIRE(box);
  PostMessageW(box, WM_COMMAND, IDOK, 0);
  CHECK(WaitFor([&] { return Control(top, IDC_imgSearch) != nullptr; }));
}

TEST_CASE("a second scan of a run finds the same and goes on in the same log") {
  PlantMachine();
  Program program("/STARTUP");
  const HWND top = program.MainWindow();
  REQUIRE(top);
  REQUIRE(LogHasClosed(1));
  const std::string first = LogText();
  CheckResults(top);

  Command(top, IDM_mnuStartScan);  // from the list of results
  REQUIRE(LogHasClosed(2));
  const std::string second = LogText();
  CHECK(second.starts_with(first));
  CheckResults(top);

  Command(top, IDM_mnuHome);
  REQUIRE(ReadyControl(top, IDC_imgSearch));
  Command(top, IDM_mnuStartScan);
  REQUIRE(LogHasClosed(3));
  CHECK(LogText().starts_with(second));
  CheckResults(top);

  CHECK(Count(LogText(), ExpectedDriveSection()) == 3);
  CHECK(Count(LogText(), "Components found: 3\r\n") == 3);
  CHECK(program.Close());
  CHECK(program.ExitCode() == 0);
  CHECK(ScanLogs().size() == 1);
  CHECK(Setting("Statistics", "NUMBER OF SCANS") == "3");
  CHECK(Errors() == "");
}

TEST_CASE("definitions that are replaced while the program runs count in the next scan") {
  PlantMachine();
  SetSetting("REFFILE", "Number", "1");
  Program program("");
  const HWND top = program.MainWindow();
  REQUIRE(top);
  REQUIRE(ReadyControl(top, IDC_imgSearch));
  PlantContent(kReference, test::Definitions()
                               .Value("SETTINGS", "UPDATE-FILE-NUMBER", "2")
                               .Value("SPYWARE DEFINITIONS ADDED", "SDA0", "Innocents")
                               .Entry("SAFI", {"SAFIT", "SAFIS"}, {"Adware.New", "innocent.dll"})
                               .Text());
  Command(top, IDM_mnuStartScan);
  REQUIRE(LogHasClosed(1));
  CHECK(LogText().find("Adware.New file:C:\\planted\\innocent.dll\r\n") != std::string::npos);
  const HWND box = program.Window("Information");
  REQUIRE(box);
  CHECK(Text(GetDlgItem(box, 0xFFFF)) ==
        "Update File: 2\r\nComponents Update: None\r\nComponents Added: Innocents\r\n"
        "Components Removed: None\r\n");
  PostMessageW(box, WM_COMMAND, IDOK, 0);
  CHECK(WaitFor([&] { return !IsWindow(box); }));
  Command(top, IDM_mnuStartScan);
  REQUIRE(LogHasClosed(2));
  CHECK(program.Window("Information", 1500) == nullptr);
  CHECK(program.Close());
  SetSetting("REFFILE", "Number", "");
}

TEST_CASE("Stop ends a scan without log and finish") {
  PlantMachine();
  Program program("");
  const HWND top = program.MainWindow();
  REQUIRE(top);
  const HWND start = ReadyControl(top, IDC_imgSearch);
  REQUIRE(start);
  Click(start);
  HWND stop = nullptr;
  REQUIRE(WaitFor([&] { return (stop = Control(top, IDC_cmdAbort)) != nullptr; }));
  Click(stop);
  REQUIRE(ReadyControl(top, IDC_cmdNext));
  CHECK(Text(Control(top, IDC_lblScanStatus)) == "Scan stopped");
  CHECK(Text(Control(top, IDC_lblPercent)).empty());
  CHECK(LogText().find("Components found:") == std::string::npos);
  CHECK(Setting("Statistics", "NUMBER OF SCANS").empty());
  CHECK(program.Close());
}

TEST_CASE("closing the program in the middle of a scan ends it cleanly") {
  PlantMachine();
  Program program("/STARTUP");
  REQUIRE(WaitFor([&] { return Control(program.MainWindow(), IDC_cmdAbort) != nullptr; }));
  CHECK(program.Close());
  CHECK(program.ExitCode() == 0);
  CHECK(Setting("Path", "Install") == "C:\\Scourwell");
}

TEST_CASE("the main window: title, smallest size, language, scope tree") {
  PlantMachine();
  Program program("");
  const HWND top = program.MainWindow();
  REQUIRE(top);
  CHECK(Text(top) == "Scourwell 1.0 Rev.0");
  SetWindowPos(top, nullptr, 0, 0, 200, 100, SWP_NOZORDER);
  RECT rect;
  GetWindowRect(top, &rect);
  CHECK(rect.right - rect.left >= 722);
  CHECK(rect.bottom - rect.top >= 406);
  CHECK(StatusText(Control(top, IDC_StatusBar), 2) == "Language: English");

  std::vector<std::string> texts;
  for (const TreeRow& row : TreeRows(Control(top, IDC_TreeView1))) {
    CHECK(row.checked);
    texts.push_back(std::string(static_cast<std::size_t>(row.depth), ' ') + row.text);
  }
  CHECK(texts == std::vector<std::string>{"My Computer", " Scan Memory", " Scan Registry",
                                          "  Quick Scan", "  Deep Scan", " Scan Cookies",
                                          " Scan Drives", "  C: Fixed"});
}

TEST_SUITE_END();

}  // namespace scourwell::ui
