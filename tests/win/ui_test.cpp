// The built program on a machine of its own, driven through its real windows.
#include <doctest/doctest.h>

#include <string>
#include <vector>

#include "platform/registry_access.h"
#include "platform/text.h"
#include "platform/win/desktop_win.h"
#include "platform/win/files_win.h"
#include "platform/win/registry_win.h"
#include "shell/resource.h"
#include "tests/win/driver.h"

using namespace scourwell;
using namespace scourwell::ui;

namespace {

constexpr char kProgramFolder[] = "C:\\Scourwell\\";
constexpr char kLongRule[] = "==========================================================";

FilesWin files;
RegistryWin registry;

std::string Scrambled(std::string text) {
  for (char& c : text) c = static_cast<char>(c + 12);
  return text;
}

// With an access time that reading the file does not change.
void WriteFile(const std::string& path, std::size_t size) {
  REQUIRE(files.Replace(path, std::string(size, 'x')).ok());
  const FileHandle file(CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
  FILETIME now;
  GetSystemTimeAsFileTime(&now);
  const std::uint64_t later =
      (static_cast<std::uint64_t>(now.dwHighDateTime) << 32 | now.dwLowDateTime) + 36'000'000'000;
  const FILETIME accessed = {static_cast<DWORD>(later), static_cast<DWORD>(later >> 32)};
  REQUIRE(SetFileTime(file.get(), nullptr, &accessed, nullptr));
}

std::string Setting(const std::string& section, const std::string& key) {
  return CRegister(registry).QueryString(RootKey::CurrentUser, "Software\\Scourwell\\" + section,
                                         key);
}

void SetSetting(const std::string& section, const std::string& key, const std::string& text) {
  REQUIRE(CRegister(registry).SetString(RootKey::CurrentUser, "Software\\Scourwell\\" + section,
                                        key, text) == kRegOk);
}

std::vector<std::string> ScanLogs() {
  std::vector<std::string> names;
  REQUIRE(files
              .List(std::string(kProgramFolder) + "ScanLog*.txt",
                    [&](const DirEntry& entry) {
                      names.push_back(kProgramFolder + entry.name);
                      return true;
                    })
              .ok());
  return names;
}

std::string LogText() {
  std::string text;
  const std::vector<std::string> logs = ScanLogs();
  if (!logs.empty()) static_cast<void>(files.Read(logs.back(), 1 << 20, &text));
  return text;
}

bool LogIsComplete() {
  const std::string text = LogText();
  return text.find("Is Windows Me: ") != std::string::npos &&
         text.ends_with(std::string(kLongRule) + "\r\n");
}

// A fresh store, no logs, definitions that name what stands in C:\planted.
void PlantMachine() {
  static_cast<void>(registry);
  for (const char* section :
       {"Language", "Mark", "AutoSave", "UseRegEdit", "AutoCheckForUpdate", "ScanSections",
        "RunStartup", "DeleteAfterReboot", "AutoRemove", "Path", "Version", "Statistics"}) {
    registry.DeleteKeyCall(RootKey::CurrentUser, std::string("Software\\Scourwell\\") + section);
  }
  for (const std::string& log : ScanLogs()) REQUIRE(files.EraseFile(log).ok());
  static_cast<void>(files.EraseFile(std::string(kProgramFolder) + "errorlog.txt"));
  for (const char* folder : {"C:\\planted", "C:\\planted\\deep", "C:\\planted\\deep\\SpyHome"}) {
    CreateDirectoryA(folder, nullptr);
  }
  WriteFile("C:\\planted\\deep\\spyone.dll", 2048);
  WriteFile("C:\\planted\\deep\\SpyHome\\inside.txt", 512);
  WriteFile("C:\\planted\\innocent.dll", 10);
  const std::string reference = "[SAFI]\r\n0SAFIT=" + Scrambled("Adware.One") +
                                "\r\n0SAFIS=" + Scrambled("SPYONE.DLL") +
                                "\r\n[SAFO]\r\n0SAFOT=" + Scrambled("Adware.Home") +
                                "\r\n0SAFOS=" + Scrambled("SpyHome") + "\r\n";
  REQUIRE(files.Replace(std::string(kProgramFolder) + "Ini\\update.ref", reference).ok());
}

std::string AccessTime(const std::string& path) {
  DirEntry entry;
  REQUIRE(files.Stat(path, &entry).ok());
  ClockWin clock;
  return clock.GeneralDate(clock.ToLocal(entry.accessed));
}

std::string FileLines(const std::string& path, const std::string& kilobytes) {
  return "\tFileSize :" + kilobytes + " kb\r\n\tLast accessed  :" + AccessTime(path) +
         "\r\n\tBuild :\r\n\tOS :-\r\n\r\n\r\n";
}

std::string ExpectedDriveSection() {
  return "\r\nFolder scan\r\n====================\r\n"
         "Adware.Home folder:C:\\planted\\deep\\SpyHome\r\n"
         "Folder scan result:\r\nSuspicious folders  found:1\r\n"
         "\r\nFile scan\r\n====================\r\n"
         "Adware.Home file:C:\\planted\\deep\\SpyHome\\inside.txt\r\n" +
         FileLines("C:\\planted\\deep\\SpyHome\\inside.txt", "0.5") +
         "Adware.One file:C:\\planted\\deep\\spyone.dll\r\n" +
         FileLines("C:\\planted\\deep\\spyone.dll", "2") +
         "File scan result:\r\nSuspicious files found:2\r\nEnd of this section\r\n";
}

const std::string kClosing1 = std::string("\r\n\r\n") + kLongRule + "\r\nComponents found: 3\r\n" +
                              kLongRule + "\r\n\r\nScan finished on ";
const std::string kClosing2 =
    std::string("\r\nSystem information\r\n\r\n\r\n") + kLongRule +
    "\r\nApplication Version: 1.0.0\r\n" + kLongRule +
    "\r\nMajor Version: 6\r\nMinor Version: 1\r\nBuild Number Version: 7601\r\nPlatform ID: 2\r\n"
    "Service Pack Major: 1\r\nService Pack Minor: 0\r\nSuite Mask: 0\r\n"
    "Platform: Windows XP\r\nPlatform Version: Windows XP v6.1, Build 7601\r\n"
    "OS Product Name: NT Workstation\r\nCSD Version: Service Pack 1\r\nIs Windows XP: True\r\n"
    "Is Windows 2K: True\r\nIs Windows NT: True\r\nIs Windows 9x: False\r\n"
    "Is Windows 95: False\r\nIs Windows 98: False\r\nIs Windows Me: False\r\n\r\n\r\n" +
    kLongRule + "\r\n";

const std::vector<std::vector<std::string>> kExpectedRows = {
    {"Spy Folder", "Adware.Home", "C:\\planted\\deep\\SpyHome"},
    {"Spy File", "Adware.Home", "C:\\planted\\deep\\SpyHome\\inside.txt"},
    {"Spy File", "Adware.One", "C:\\planted\\deep\\spyone.dll"},
};

}  // namespace

TEST_SUITE_BEGIN("ui");

TEST_CASE("an unattended scan finds what is planted and leaves the finished log") {
  PlantMachine();
  Program program("/Startup");
  const HWND top = program.MainWindow();
  REQUIRE(top);
  REQUIRE(WaitFor(LogIsComplete, 60000));
  const std::string log = LogText();
  const std::string section = ExpectedDriveSection();
  REQUIRE(log.starts_with(section));
  const std::string closing = log.substr(section.size());
  CHECK(closing.starts_with(kClosing1));
  CHECK(closing.ends_with(kClosing2));
  CHECK(closing.size() > kClosing1.size() + kClosing2.size());
  CHECK(closing.size() < kClosing1.size() + kClosing2.size() + 40);  // one date between them

  SUBCASE("then the list shows the rows, all checked") {
    const HWND next = ReadyControl(top, IDC_cmdNext);
    REQUIRE(next);
    CHECK(Text(Control(top, IDC_lblScanStatus)) == "Scan finished");
    Click(next);
    const HWND list = ReadyControl(top, IDC_SpyListView);
    REQUIRE(list);
    const std::vector<ListRow> rows = ListRows(list);
    REQUIRE(rows.size() == kExpectedRows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
      CHECK(rows[i].checked);
      CHECK(rows[i].texts == kExpectedRows[i]);
    }
  }
  CHECK(program.Close());
  CHECK(program.ExitCode() == 0);
  CHECK(ScanLogs().size() == 1);
  CHECK(Setting("Statistics", "NUMBER OF SCANS") == "1");
}

TEST_CASE("a first start fills the store with the defaults") {
  PlantMachine();
  Program program("");
  REQUIRE(program.MainWindow());
  REQUIRE(program.Close());
  CHECK(Setting("Language", "Name") == "English.ini");
  CHECK(Setting("Mark", "Checked") == "y");
  CHECK(Setting("AutoSave", "AutoSave") == "True");
  CHECK(Setting("AutoRemove", "AutoRemove") == "False");
  CHECK(Setting("Path", "Install") == "C:\\Scourwell");
  CHECK(Setting("Path", "DefinitionsPath") == "C:\\Scourwell\\Ini");
  CHECK(Setting("Version", "Version") == "1.0.0");
  CHECK(ProfilesWin().ReadProfile("Setting", "DEFINITIONS_FILE_LOCATION",
                                  "C:\\Scourwell\\Setting.ini") == "C:\\Scourwell\\Ini");
  CHECK(ScanLogs().empty());
}

TEST_CASE("with AutoSave off the log does not outlive the run") {
  PlantMachine();
  SetSetting("AutoSave", "AutoSave", "False");
  Program program("/STARTUP");
  REQUIRE(program.MainWindow());
  REQUIRE(WaitFor(LogIsComplete, 60000));
  REQUIRE(program.Close());
  CHECK(ScanLogs().empty());
  CHECK(Setting("AutoSave", "AutoSave") == "False");
}

TEST_CASE("a second start ends at once and changes nothing") {
  PlantMachine();
  SetSetting("AutoSave", "AutoSave", "False");
  Program first("/STARTUP");
  REQUIRE(first.MainWindow());
  REQUIRE(WaitFor(LogIsComplete, 60000));
  SetSetting("Mark", "Checked", "n");
  Program second("");
  CHECK(second.Ended(5000));
  CHECK(second.ExitCode() == 0);
  CHECK(Setting("Mark", "Checked") == "n");
  CHECK(ScanLogs().size() == 1);
  CHECK_FALSE(first.Ended(0));
}

TEST_CASE("a path on the command line is scanned alone, without the tree") {
  PlantMachine();
  WriteFile("C:\\planted\\spyone.dll", 1);            // beside the folder, not in it
  Program program("\"planted\\deep\\SpyHome\\..\"");  // relative, in quotes, with a step back
  REQUIRE(program.MainWindow());
  REQUIRE(WaitFor(LogIsComplete, 60000));
  CHECK(Control(program.MainWindow(), IDC_TreeView1) == nullptr);
  CHECK(LogText().starts_with(ExpectedDriveSection()));
  CHECK(files.EraseFile("C:\\planted\\spyone.dll").ok());
}

TEST_CASE("a folder below what the definitions name gives a clean result") {
  PlantMachine();
  CreateDirectoryA("C:\\clean place", nullptr);
  WriteFile("C:\\clean place\\readme.txt", 1);
  Program program("C:\\clean place");
  const HWND top = program.MainWindow();
  REQUIRE(top);
  REQUIRE(WaitFor(LogIsComplete, 60000));
  CHECK(LogText().find("Components found: 0\r\n") != std::string::npos);
  Click(ReadyControl(top, IDC_cmdNext));
  const HWND box = program.Window("Information");
  REQUIRE(box);
  PostMessageA(box, WM_COMMAND, IDOK, 0);
  CHECK(WaitFor([&] { return Control(top, IDC_cmdStartScan) != nullptr; }));
}

TEST_CASE("Stop ends a scan without log and finish") {
  PlantMachine();
  Program program("");
  const HWND top = program.MainWindow();
  REQUIRE(top);
  const HWND start = ReadyControl(top, IDC_cmdStartScan);
  REQUIRE(start);
  Click(start);
  HWND stop = nullptr;
  REQUIRE(WaitFor([&] { return (stop = Control(top, IDC_cmdAbort)) != nullptr; }));
  Click(stop);
  REQUIRE(ReadyControl(top, IDC_cmdNext));
  CHECK(Text(Control(top, IDC_lblScanStatus)) == "Scan stopped");
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

TEST_CASE("bad files beside the program: it starts, scans and says what was wrong") {
  PlantMachine();
  std::string noise;
  for (int i = 0; i < 100000; ++i) noise += static_cast<char>(i * 7919 >> 3);
  REQUIRE(files.Replace(std::string(kProgramFolder) + "Ini\\update.ref", noise).ok());
  const std::string pack = "[Adware Language Pack]\r\n1885=A" + std::string(1, '\0') +
                           "B\r\n1808=" + std::string(600, 'w') + "\r\n";
  REQUIRE(files.Replace(std::string(kProgramFolder) + "Lang\\Broken.ini", pack).ok());
  SetSetting("Language", "Name", "Broken.ini");
  SetSetting("Path", "LogPath", "C:\\no such folder");
  Program program("/STARTUP");
  const HWND top = program.MainWindow();
  REQUIRE(top);
  REQUIRE(WaitFor(LogIsComplete, 60000));
  REQUIRE(ReadyControl(top, IDC_cmdNext));
  CHECK(WaitFor([&] { return Text(Control(top, IDC_lblScanStatus)) == std::string(499, 'w'); }));
  std::string errors;
  REQUIRE(files.Read(std::string(kProgramFolder) + "errorlog.txt", 1 << 20, &errors).ok());
  CHECK(errors.find("update.ref") != std::string::npos);
  CHECK(program.Close());
  CHECK(Setting("Path", "LogPath") == "C:\\Scourwell");
}

TEST_SUITE_END();
