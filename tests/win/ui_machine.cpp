// SPDX-License-Identifier: MIT
#include "tests/win/ui_machine.h"

#include <cstdlib>

#include "machine/cregister.h"
#include "platform/win/desktop_win.h"
#include "platform/win/files_win.h"
#include "platform/win/native_text.h"
#include "platform/win/registry_win.h"

namespace scourwell::ui {
namespace {

constexpr char kStore[] = "Software\\Scourwell\\";
constexpr char kOverride[] = "Software\\Wine\\AppDefaults\\Scourwell.exe";

FilesWin files;
RegistryWin registry;

std::string AccessTime(const std::string& path) {
  DirEntry entry;
  REQUIRE(files.Stat(path, &entry).ok());
  ClockWin clock;
  return clock.GeneralDate(clock.ToLocal(entry.accessed));
}

std::string UsualWindows() {
  const char* usual = std::getenv("SCOURWELL_WINDOWS");
  return usual ? usual : "";
}

// On Windows 95, 98 and Me the program without wide functions stands for it.
std::string family = "nt";

void UseProgramOf(const std::string& version) {
  const bool ansi = version == "win95" || version == "win98" || version == "winme";
  if (family == (ansi ? "9x" : "nt")) return;
  family = ansi ? "9x" : "nt";
  const std::wstring program = Wide("C:\\programs\\" + family + ".exe");
  REQUIRE(CopyFileW(program.c_str(), L"C:\\Scourwell\\Scourwell.exe", FALSE));
}

std::string FileLines(const std::string& path, const std::string& kilobytes) {
  return "\tFileSize :" + kilobytes + " kb\r\n\tLast accessed  :" + AccessTime(path) +
         "\r\n\tBuild :\r\n\tOS :-\r\n\r\n\r\n";
}

}  // namespace

void PlantMachine() {
  for (const char* section :
       {"Language", "Mark", "AutoSave", "UseRegEdit", "AutoCheckForUpdate", "ScanSections",
        "RunStartup", "DeleteAfterReboot", "AutoRemove", "Backup", "Path", "Version", "Statistics",
        "Web", "Windows", "Columns", "Results"}) {
    registry.DeleteKeyCall(RootKey::CurrentUser, std::string(kStore) + section);
  }
  // Nobody presses OK on the page of the first start.
  SetSetting("Tour", "Shown", "True");
  SetWindowsVersion("");
  for (const std::string& log : ScanLogs()) Erase(log);
  static_cast<void>(files.EraseFile(std::string(kProgramFolder) + "errorlog.txt"));
  for (const char* folder : {"C:\\planted", "C:\\planted\\deep", "C:\\planted\\deep\\SpyHome"}) {
    CreateDirectoryA(folder, nullptr);
  }
  PlantFile("C:\\planted\\deep\\spyone.dll", 2048);
  PlantFile("C:\\planted\\deep\\SpyHome\\inside.txt", 512);
  PlantFile("C:\\planted\\innocent.dll", 10);
  PlantContent(kReference, PlantedDefinitions().Text());
}

test::Definitions PlantedDefinitions() {
  return test::Definitions()
      .Entry("SAFI", {"SAFIT", "SAFIS"}, {"Adware.One", "SPYONE.DLL"})
      .Entry("SAFO", {"SAFOT", "SAFOS"}, {"Adware.Home", "SpyHome"});
}

void PlantContent(const std::string& path, const std::string& content) {
  REQUIRE(files.Replace(path, content).ok());
}

void PlantFile(const std::string& path, std::size_t size) {
  PlantContent(path, std::string(size, 'x'));
  const FileHandle file(CreateFileW(Wide(path).c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
  FILETIME now;
  GetSystemTimeAsFileTime(&now);
  const std::uint64_t later =
      (static_cast<std::uint64_t>(now.dwHighDateTime) << 32 | now.dwLowDateTime) + 36'000'000'000;
  const FILETIME accessed = {static_cast<DWORD>(later), static_cast<DWORD>(later >> 32)};
  REQUIRE(SetFileTime(file.get(), nullptr, &accessed, nullptr));
}

std::string Setting(const std::string& section, const std::string& key) {
  return CRegister(registry).QueryString(RootKey::CurrentUser, kStore + section, key);
}

void SetSetting(const std::string& section, const std::string& key, const std::string& text) {
  REQUIRE(CRegister(registry).SetString(RootKey::CurrentUser, kStore + section, key, text) ==
          kRegOk);
}

void SetWindowsVersion(const std::string& asked) {
  const std::string version = asked.empty() ? UsualWindows() : asked;
  UseProgramOf(version);
  if (version.empty()) {
    static_cast<void>(registry.DeleteValue(RootKey::CurrentUser, kOverride, "Version"));
    return;
  }
  REQUIRE(CRegister(registry).SetString(RootKey::CurrentUser, kOverride, "Version", version) ==
          kRegOk);
}

bool RunsAs9x() { return family == "9x"; }

std::string Content(const std::string& path) {
  std::string content;
  static_cast<void>(files.Read(path, 1 << 20, &content));
  return content;
}

void Erase(const std::string& path) { REQUIRE(files.EraseFile(path).ok()); }

std::string Errors() { return Content(std::string(kProgramFolder) + "errorlog.txt"); }

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
  const std::vector<std::string> logs = ScanLogs();
  return logs.empty() ? std::string() : Content(logs.back());
}

bool LogIsComplete() {
  const std::string text = LogText();
  return text.find("Is Windows Me: ") != std::string::npos && text.ends_with("==\r\n");
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

void CheckResults(HWND top) {
  const HWND next = ReadyControl(top, IDC_cmdNext);
  REQUIRE(next);
  CHECK(Text(Control(top, IDC_lblScanStatus)) == "Scan finished");
  Click(next);
  const HWND list = ReadyControl(top, IDC_SpyListView);
  REQUIRE(list);
  std::string rows;
  for (const ListRow& row : ListRows(list)) {
    CHECK(row.checked);
    for (const std::string& text : row.texts) rows += text + "|";
    rows += "\n";
  }
  CHECK(rows ==
        "Spy Folder|Adware.Home|C:\\planted\\deep\\SpyHome|\n"
        "Spy File|Adware.Home|C:\\planted\\deep\\SpyHome\\inside.txt|\n"
        "Spy File|Adware.One|C:\\planted\\deep\\spyone.dll|\n");
}

}  // namespace scourwell::ui
