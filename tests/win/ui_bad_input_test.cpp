// SPDX-License-Identifier: MIT

// The built program with damaged files and a machine that refuses.
#include <algorithm>

#include "platform/win/desktop_win.h"
#include "settings/settings.h"
#include "tests/win/ui_machine.h"

namespace scourwell::ui {
namespace {

using test::Definitions;

constexpr std::size_t kLarge = 50'000'000;

// One scan, from start to close; what it leaves is in the logs.
void Scan(const std::string& arguments) {
  Program program(arguments);
  const HWND top = program.MainWindow();
  REQUIRE(top);
  REQUIRE(WaitFor(LogIsComplete, 60000));
  REQUIRE(ReadyControl(top, IDC_cmdNext));
  CHECK(program.Close());
  CHECK(program.ExitCode() == 0);
}

void CheckFound(int items) {
  CHECK(LogText().find("Components found: " + std::to_string(items) + "\r\n") != std::string::npos);
}

// Each of `records` stands in the error log; with none of them the log is not there.
void CheckRecords(const std::vector<std::string>& records) {
  const std::string errors = Errors();
  CAPTURE(errors);
  CHECK(errors.empty() == records.empty());
  for (const std::string& record : records) {
    CAPTURE(record);
    CHECK(errors.find(record) != std::string::npos);
  }
}

Definitions WithFiles(const std::vector<std::string>& names) {
  Definitions definitions = PlantedDefinitions();
  for (const std::string& name : names) {
    definitions.Entry("SAFI", {"SAFIT", "SAFIS"}, {"spy", name});
  }
  return definitions;
}

std::string Repeated(const std::string& text, std::size_t size) {
  std::string large;
  large.reserve(size + text.size());
  while (large.size() < size) large += text;
  return large;
}

std::string Noise(std::size_t size) {
  test::Dice dice(1);
  std::string noise(size, '\0');
  for (char& c : noise) c = static_cast<char>(dice.Below(256));
  std::replace(noise.begin(), noise.end(), '[', ']');
  return noise;
}

// Keeps others from opening a file or folder.
FileHandle Hold(const std::string& path) {
  return FileHandle(CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

}  // namespace

TEST_SUITE_BEGIN("ui");

TEST_CASE("a useless reference file: nothing is found and the file is put on record") {
  PlantMachine();
  FileHandle held;
  std::string record = "Description: The definitions file holds no section, Error Number: 62";
  SUBCASE("missing") {
    Erase(kReference);
    record = "Description: File not found, Error Number: 53";
  }
  SUBCASE("empty") { PlantContent(kReference, ""); }
  SUBCASE("binary, 50 MB") { PlantContent(kReference, Noise(kLarge)); }
  SUBCASE("in use") {
    held = Hold(kReference);
    REQUIRE(held);
    record = "Description: Permission denied, Error Number: 70";
  }
  Scan("C:\\planted");
  CheckFound(0);
  CheckRecords({record + ", Method: checkUpdateIni, File: " + kReference});
}

TEST_CASE("a damaged reference file: what can be read of it is searched for") {
  PlantMachine();
  int found = 3;
  std::vector<std::string> records;
  SUBCASE("50 MB of valid sections, repeated") {
    PlantContent(kReference, Repeated(PlantedDefinitions().Text(), kLarge));
  }
  SUBCASE("cut in the middle of a value") {
    std::string text = WithFiles({"innocent.dll"}).Value("NTOT", "SAFOTNUM", "2").Text();
    text.resize(text.find("SAFOS=") + 9);
    PlantContent(kReference, text);
    found = 2;
    records = {"The definitions announce 2 entries of SAFOT, 1 were read"};
  }
  SUBCASE("a code below 12 ends the list") {
    PlantContent(kReference, PlantedDefinitions()
                                 .Raw("SAFI", "1SAFIT", test::Scramble("x"))
                                 .Raw("SAFI", "1SAFIS", "m\x0Bm")
                                 .Value("SAFI", "2SAFIT", "x")
                                 .Value("SAFI", "2SAFIS", "innocent.dll")
                                 .Text());
    records = {"Error Number: 5, Method: Decrypt, Section: SAFI, Key: 1SAFIS"};
  }
  SUBCASE("a gap in a list, lying counts") {
    PlantContent(kReference, PlantedDefinitions()
                                 .Value("SAFI", "2SAFIT", "x")
                                 .Value("SAFI", "2SAFIS", "innocent.dll")
                                 .Value("NTOT", "SAFITNUM", "2147483647")
                                 .Value("NTOT", "SAFOTNUM", "-1")
                                 .Text());
    records = {"The definitions announce 2147483647 entries of SAFIT, 1 were read",
               "The definitions announce -1 entries of SAFOT, 1 were read"};
  }
  SUBCASE("huge file names") {
    std::vector<std::string> names;
    for (const std::size_t size : {1999u, 2000u, 5000u}) {
      names.push_back(std::string(size, 'x'));
      names.push_back("*" + std::string(size - 1, 'x'));
      names.push_back("deep\\" + std::string(size - 5, 'x'));
    }
    names.push_back("innocent.dll");
    PlantContent(kReference, WithFiles(names).Text());
    found = 4;
    records = {
        "A value longer than 1999 bytes was cut, Error Number: 6, "
        "Method: updateListfromINI, Section: SAFI, Key: 4SAFIS"};
  }
  Scan("C:\\planted");
  CheckFound(found);
  CheckRecords(records);
  CHECK(Errors().find("Key: 3SAFIS") == std::string::npos);  // 1999 bytes are not cut
}

TEST_CASE("an unreadable folder gives a record and the rest is scanned") {
  PlantMachine();
  CreateDirectoryA("C:\\planted\\closed", nullptr);
  const FileHandle held = Hold("C:\\planted\\closed");
  REQUIRE(held);
  Scan("C:\\planted");
  CheckFound(3);
  CheckRecords(
      {"Description: Permission denied, Error Number: 70, Method: subShowFolderList, "
       "File Name: closed, sFolder: C:\\planted\\closed"});
}

TEST_CASE("a log folder that refuses or has gone: the log lands in the program folder") {
  PlantMachine();
  CreateDirectoryA("C:\\logs", nullptr);
  SetSetting("Path", "LogPath", "C:\\logs");
  std::vector<std::string> obstacles;
  std::string why = "Error Description: Path not found, Error Number: 76";
  SUBCASE("refuses") {
    // Wine lets the superuser write everywhere: folders stand where the log would. Its name counts
    // in 864 milliseconds; half seconds leave none of the next two minutes out.
    why = "Error Description: Permission denied, Error Number: 70";
    LocalTime now = ClockWin().Now();
    for (int half = 0; half < 240; ++half) {
      now.second = half / 2;
      now.millisecond = half % 2 * 500;
      const std::string obstacle = ScanLogPath("C:\\logs", now);
      if (CreateDirectoryA(obstacle.c_str(), nullptr)) obstacles.push_back(obstacle);
    }
    CHECK(obstacles.size() >= 138);
  }
  SUBCASE("has gone") {}
  Program program("");
  const HWND start = ReadyControl(program.MainWindow(), IDC_imgSearch);
  REQUIRE(start);
  if (obstacles.empty()) REQUIRE(RemoveDirectoryA("C:\\logs"));
  Click(start);
  CHECK(WaitFor(LogIsComplete, 60000));
  CHECK(LogText().find(ExpectedDriveSection()) != std::string::npos);
  CheckRecords({why + ", Method: CreateMemoryLogFile, LogFile: C:\\logs\\ScanLog"});
  CHECK(Errors().find("Written to: C:\\Scourwell\\ScanLog") != std::string::npos);
  CHECK(program.Close());
  for (const std::string& obstacle : obstacles) CHECK(RemoveDirectoryA(obstacle.c_str()));
  RemoveDirectoryA("C:\\logs");
}

TEST_CASE("a broken language pack and a log folder that was never there") {
  PlantMachine();
  PlantContent(std::string(kProgramFolder) + "Lang\\Broken.ini",
               "[Adware Language Pack]\r\n1885=A" + std::string(1, '\0') +
                   "B\r\n1808=" + std::string(600, 'w') + "\r\n");
  SetSetting("Language", "Name", "Broken.ini");
  SetSetting("Path", "LogPath", "C:\\no such folder");
  Program program("C:\\planted");
  const HWND top = program.MainWindow();
  REQUIRE(top);
  REQUIRE(WaitFor(LogIsComplete, 60000));
  REQUIRE(ReadyControl(top, IDC_cmdNext));
  CHECK(WaitFor([&] { return Text(Control(top, IDC_lblScanStatus)) == std::string(499, 'w'); }));
  CHECK(program.Close());
  CHECK(Setting("Path", "LogPath") == "C:\\Scourwell");
}

TEST_CASE("a store full of odd values: the start page and the options come up all the same") {
  PlantMachine();
  const std::string endless(3000, 'x');
  SetSetting("Language", "Name", "..\\..\\" + endless + "*?.ini");
  SetSetting("Mark", "Checked", "perhaps");
  SetSetting("AutoSave", "AutoSave", "true");
  SetSetting("ScanSections", "Trojans", endless);
  SetSetting("Path", "LogPath", "C:\\windows\\notepad.exe");
  SetSetting("Path", "BackupPath", "\\\\?\\" + endless);
  SetSetting("Path", "DefinitionsPath", "con");
  SetSetting("Statistics", "NUMBER OF SCANS", "many");
  SetSetting("Statistics", "LAST SCAN DATE", endless);
  SetSetting("Statistics", "NUMBER OF OBJECTS", "99999999999999999999");
  Program program("");
  const HWND top = program.MainWindow();
  REQUIRE(top);
  REQUIRE(ReadyControl(top, IDC_imgSearch));
  Command(top, IDM_mnuOptions);
  const HWND options = program.Window("Options");
  REQUIRE(options);
  Click(ReadyControl(options, IDC_CmdProceed));
  REQUIRE(WaitFor([&] { return !IsWindow(options); }));
  CHECK(program.Close());
  CHECK(program.ExitCode() == 0);
  CHECK(Setting("AutoSave", "AutoSave") == "False");
  CHECK(Setting("ScanSections", "Trojans") == "False");
  CHECK(Setting("Path", "LogPath") == "C:\\Scourwell");
  CHECK(Setting("Path", "BackupPath") == "C:\\Scourwell");
  CHECK(Setting("Path", "DefinitionsPath") == "C:\\Scourwell\\Ini");
}

TEST_CASE("a pack that changes and goes while a scan runs does not disturb it") {
  PlantMachine();
  const std::string pack = std::string(kProgramFolder) + "Lang\\Passing.ini";
  const std::string head = "[Adware Language Pack]\r\n";
  PlantContent(pack, head + "1808=First\r\n");
  SetSetting("Language", "Name", "Passing.ini");
  {
    Program program("/STARTUP");
    const HWND top = program.MainWindow();
    REQUIRE(top);
    REQUIRE(ReadyControl(top, IDC_cmdAbort));
    PlantContent(pack, std::string(100000, '\xFF'));
    Sleep(300);
    PlantContent(pack, head + "1808=Second\r\n");
    Sleep(300);
    Erase(pack);
    REQUIRE(WaitFor(LogIsComplete, 60000));
    CHECK(LogText().find("Components found: 3\r\n") != std::string::npos);
    // Of the pack as it was at that moment.
    CHECK(WaitFor([&] {
      const std::string status = Text(Control(top, IDC_lblScanStatus));
      return status == "First" || status == "Second" || status == "Scan finished";
    }));
    CHECK(program.Close());
    CHECK(program.ExitCode() == 0);
  }
}

TEST_SUITE_END();

}  // namespace scourwell::ui
