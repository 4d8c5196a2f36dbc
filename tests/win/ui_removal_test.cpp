// SPDX-License-Identifier: MIT

// Removal through the windows of the built program, and what stands in its way.
#include <shlobj.h>

#include <algorithm>
#include <iterator>
#include <sstream>

#include "platform/registry.h"
#include "platform/win/files_win.h"
#include "platform/win/registry_win.h"
#include "platform/win/system_win.h"
#include "tests/win/evil_machine.h"
#include "tests/win/snapshot.h"
#include "text/text.h"

namespace scourwell::ui {
namespace {

FilesWin files;
RegistryWin registry;

// Without what Wine notes down of itself.
std::vector<std::string> RegistryLines(const std::vector<std::string>& without) {
  std::string text =
      KeySnapshot(RootKey::LocalMachine, "Software") +
      KeySnapshot(RootKey::LocalMachine, "System\\CurrentControlSet\\Control\\Session Manager") +
      KeySnapshot(RootKey::CurrentUser, "Software") +
      KeySnapshot(RootKey::CurrentUser, "Control Panel");
  for (const std::string& part : without) text.erase(text.find(part), part.size());
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (line.find("Software\\Wine\\") == line.npos) lines.push_back(line);
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

// Three components of definitions, in C:\components; each serves a class, if so wanted.
void PlantComponents(bool registered) {
  PlantEvil();
  test::Definitions definitions;
  CreateDirectoryA("C:\\components", nullptr);
  for (const std::string name : {"behaves.dll", "hangs.dll", "crashes.dll"}) {
    definitions.Entry("SAFI", {"SAFIT", "SAFIS"}, {"Adware.Evil", Upper(name)});
    const std::string path = "C:\\components\\" + name;
    REQUIRE(CopyFileA(("C:\\" + name).c_str(), path.c_str(), FALSE));
    const std::string key = "SOFTWARE\\Classes\\CLSID\\{" + name + "}";
    if (registered) {
      registry.SetValue(RootKey::LocalMachine, key + "\\InprocServer32", "",
                        {kRegText, path + '\0'});
    } else {
      registry.DeleteKeyCall(RootKey::LocalMachine, key + "\\InprocServer32");
    }
  }
  PlantContent(kReference, definitions.Text());
}

// Wine itself makes no links; paths are taken from C:\run.
void MakeLink(const std::wstring& target, const std::wstring& link) {
  std::wstring command = L"ln -s " + target + L" " + link;
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION info = {};
  REQUIRE(CreateProcessW(L"\\\\?\\unix\\bin\\ln", command.data(), nullptr, nullptr, FALSE, 0,
                         nullptr, nullptr, &startup, &info));
  DirEntry entry;
  REQUIRE(WaitFor([&] { return files.Stat("C:\\planted", &entry).ok() && entry.IsLink(); }));
}

}  // namespace

TEST_SUITE_BEGIN("ui_removal");

TEST_CASE("a portable copy leaves the registry as it was, but for what it removed") {
  PlantEvil();
  const std::string cookie =
      SystemWin().ShellFolder(CSIDL_COOKIES) + "\\someone@tracker.evil[1].txt";
  PlantContent(cookie, "recognised");
  PlantContent(
      kReference,
      Content(kReference) +
          test::Definitions().Entry("COOK", {"COOKT", "COOKC"}, {"Evil", "tracker"}).Text());
  const std::string portable = std::string(kProgramFolder) + "portable.ini";
  PlantContent(portable, "[AutoRemove]\r\nAutoRemove=True\r\n");
  const std::string run = KeySnapshot(RootKey::LocalMachine, kRun);
  const std::size_t value = run.find(std::string(kRun) + " \"EvilStart\"");
  REQUIRE(value != run.npos);
  const std::vector<std::string> before =
      RegistryLines({KeySnapshot(RootKey::LocalMachine, kEvilKey),
                     run.substr(value, run.find('\n', value) + 1 - value)});
  Program program("/STARTUP");
  REQUIRE(program.MainWindow());
  const std::string outcome = CloseOutcome(&program);
  CAPTURE(outcome);
  CHECK(outcome.find(cookie + " - removed") != std::string::npos);
  CHECK(outcome.find("C:\\planted\\evil.dll - removed") != std::string::npos);
  CHECK(program.Close());
  const std::vector<std::string> after = RegistryLines({});
  MESSAGE("lines of the registry: ", before.size());
  std::vector<std::string> changed;
  std::set_symmetric_difference(before.begin(), before.end(), after.begin(), after.end(),
                                std::back_inserter(changed));
  for (const std::string& line : changed) FAIL_CHECK(line);
  // What proves its backup stays in the copy, too.
  CHECK(Content(portable).find("[Backup]") != std::string::npos);
  std::vector<std::string> backups;
  static_cast<void>(files.List("C:\\Scourwell\\*.qzp", [&](const DirEntry& entry) {
    backups.push_back(kProgramFolder + entry.name);
    return true;
  }));
  CHECK(backups.size() == 1);
  for (const std::string& backup : backups) Erase(backup);
  Erase(portable);
}

TEST_CASE("a component is unregistered at a distance") {
  PlantComponents(true);
  DeleteFileA("C:\\unregistered.txt");
  SetSetting("AutoRemove", "AutoRemove", "True");
  SetSetting("Backup", "BackupBeforeRemoval", "False");
  Program program("\"C:\\components\"");
  REQUIRE(program.MainWindow());
  const std::string outcome = CloseOutcome(&program);
  CAPTURE(outcome);
  for (const char* name : {"behaves", "hangs", "crashes"}) {
    CHECK(outcome.find("C:\\components\\" + std::string(name) + ".dll - removed") !=
          std::string::npos);
  }
  DirEntry entry;
  CHECK(files.Stat("C:\\unregistered.txt", &entry).ok());
  const std::string errors = Errors();
  CHECK(errors.find("did not answer and was ended") != std::string::npos);
  CHECK(errors.find("failed or crashed") != std::string::npos);
  CHECK(program.Close());
}

TEST_CASE("nobody makes a start of the program load a library") {
  PlantComponents(false);
  DeleteFileA("C:\\unregistered.txt");
  SetEnvironmentVariableA("SCOURWELL_CALL", "DllUnregisterServer|C:\\components\\behaves.dll");
  for (const char* arguments : {"", "/CALL:00000004:0123456789ABCDEF0123456789ABCDEF"}) {
    Program program(arguments);
    CHECK(program.MainWindow());
    CHECK(program.Close());
  }
  SetEnvironmentVariableA("SCOURWELL_CALL", nullptr);
  SetSetting("AutoRemove", "AutoRemove", "True");
  SetSetting("Backup", "BackupBeforeRemoval", "False");
  Program program("\"C:\\components\"");
  REQUIRE(program.MainWindow());
  CHECK(CloseOutcome(&program).find("behaves.dll - removed") != std::string::npos);
  CHECK(program.Close());
  CHECK(files.ShortPath("C:\\unregistered.txt").empty());
}

TEST_CASE("what is in use goes at the next start, in the way of the running Windows") {
  for (const std::string version : {"", "win98"}) {
    CAPTURE(version);
    PlantEvil();
    SetWindowsVersion(version);
    SetSetting("AutoRemove", "AutoRemove", "True");
    SetSetting("Backup", "BackupBeforeRemoval", "False");
    static_cast<void>(registry.DeleteValue(RootKey::LocalMachine,
                                           "SYSTEM\\CurrentControlSet\\Control\\Session Manager",
                                           "PendingFileRenameOperations"));
    static_cast<void>(files.EraseFile("C:\\windows\\WinInit.ini"));
    // A library in use can be moved, an open file cannot.
    const char* library = "C:\\planted\\EvilHome\\deep\\used library.dll";
    REQUIRE(CopyFileA("C:\\behaves.dll", library, FALSE));
    const ModuleHandle used(LoadLibraryA(library));
    REQUIRE(used);
    Program program("\"C:\\planted\"");
    REQUIRE(program.MainWindow());
    const std::string outcome = CloseOutcome(&program);
    CAPTURE(outcome);
    CHECK(outcome.find("C:\\planted\\EvilHome - pending restart") != std::string::npos);
    CHECK(outcome.find("C:\\planted\\evil.dll - removed") != std::string::npos);
    RegValue pending;
    registry.QueryValue(RootKey::LocalMachine,
                        "SYSTEM\\CurrentControlSet\\Control\\Session Manager",
                        "PendingFileRenameOperations", &pending);
    const std::string ini = Content("C:\\windows\\WinInit.ini");
    CHECK((pending.data.find("\\~scw0000.del\\used library.dll") != std::string::npos) ==
          version.empty());
    CHECK((FolderSnapshot("C:\\planted").find("EvilHome") != std::string::npos) ==
          !version.empty());
    CHECK(ini.starts_with(version.empty() ? "" : "[Rename]\r\nNUL=C:\\"));
    CHECK((ini.find("\r\nDIRNUL=C:\\planted\\EvilHome\r\n") != std::string::npos) ==
          !version.empty());
    CHECK(program.Close());
  }
  SetWindowsVersion("");
}

TEST_CASE("what went before the program was closed counts") {
  PlantComponents(true);
  SetSetting("AutoRemove", "AutoRemove", "True");
  SetSetting("Backup", "BackupBeforeRemoval", "False");
  Program program("\"C:\\components\"");
  REQUIRE(program.MainWindow());
  // The second one takes its time, and the end comes before it or while it lasts.
  REQUIRE(WaitFor([] { return files.ShortPath("C:\\components\\behaves.dll").empty(); }, 60000));
  program.Close();
  CHECK(program.Ended(30000));
  CHECK(files.ShortPath("C:\\components\\crashes.dll") != "");
  const bool second = files.ShortPath("C:\\components\\hangs.dll").empty();
  CHECK(Setting("Statistics", "NUMBER OF OBJECTS") == (second ? "2" : "1"));
}

TEST_CASE("what a crash in the middle of a replacement left comes back on Windows 98") {
  PlantEvil();
  SetWindowsVersion("win98");
  const std::string list = "C:\\Scourwell\\ignorespylist.txt";
  PlantContent(list + ".~scw", "\"Spy File\",\"C:\\planted\\evil.dll\",\"\"\r\n");
  Program program("\"C:\\planted\"");
  const HWND top = ScanToResults(&program);
  CHECK(Details(Control(top, IDC_SpyListView)).find("evil.dll") == std::string::npos);
  CHECK(Content(list) != "");
  CHECK(Content(list + ".~scw") == "");
  CHECK(program.Close());
  Erase(list);
  SetWindowsVersion("");
}

// The last one, for it leaves the link behind.
TEST_CASE("a folder that becomes a link between scan and removal is not gone through") {
  PlantEvil();
  SetSetting("Backup", "BackupBeforeRemoval", "False");
  Program program("\"C:\\planted\"");
  const HWND top = ScanToResults(&program);
  REQUIRE(Details(Control(top, IDC_SpyListView)).find("C:\\planted\\evil.dll") !=
          std::string::npos);
  REQUIRE(files.Move("C:\\planted", "C:\\planted before").ok());
  PlantContent("C:\\precious\\evil.dll", "precious");
  CreateDirectoryA("C:\\precious\\EvilHome", nullptr);
  PlantContent("C:\\precious\\EvilHome\\settings.dat", "precious too");
  const std::string precious = FolderSnapshot("C:\\precious");
  MakeLink(L"precious", L"../planted");

  Click(ReadyControl(top, IDC_cmdDelete));
  Answer(&program, "Confirmation", IDOK);
  const HWND warning = program.Window("Error", 30000);
  REQUIRE(warning);
  PostMessageW(warning, WM_COMMAND, IDOK, 0);
  const std::string outcome = CloseOutcome(&program);
  CAPTURE(outcome);
  CHECK(outcome.find("C:\\planted\\evil.dll - refused (It is a link or lies behind one") !=
        std::string::npos);
  CHECK(outcome.find("C:\\planted\\EvilHome - refused") != std::string::npos);
  CHECK(outcome.find("removed") == std::string::npos);
  CHECK(FolderSnapshot("C:\\precious") == precious);
  CHECK(Errors().find("The folder is a link") != std::string::npos);
  CHECK(program.Close());
}

TEST_SUITE_END();

}  // namespace scourwell::ui
