// SPDX-License-Identifier: MIT

// Removal, backup, restore and exclusion through the windows of the built program.
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

std::vector<std::string> Column(HWND list, std::size_t column) {
  std::vector<std::string> texts;
  for (const ListRow& row : ListRows(list)) texts.push_back(row.texts[column]);
  return texts;
}

// Check marks and the focus go with their items.
void SortContents(HWND list) {
  constexpr int kPlace = 2;
  const auto unchecked = [&] {
    std::string places;
    for (const ListRow& row : ListRows(list)) places += row.checked ? "" : row.texts[kPlace];
    return places;
  };
  SelectRow(list, 1);
  PostMessageW(list, WM_KEYDOWN, VK_SPACE, 1);
  const std::string place = Column(list, kPlace)[1];
  CHECK(WaitFor([&] { return unchecked() == place; }));
  std::vector<std::string> sorted = Column(list, kPlace);
  std::ranges::sort(sorted, NoCaseLess{});
  ClickHead(list, kPlace);
  CHECK(WaitFor([&] { return Column(list, kPlace) == sorted; }));
  std::ranges::reverse(sorted);
  ClickHead(list, kPlace);
  CHECK(WaitFor([&] { return Column(list, kPlace) == sorted; }));
  CHECK(unchecked() == place);
  PostMessageW(list, WM_KEYDOWN, VK_SPACE, 1);
  CHECK(WaitFor([&] { return unchecked().empty(); }));
}

// The list says what there is to do, and all of it is checked.
void ConfirmRestore(Program* program) {
  const HWND contents = program->Window("Contents of the Backup");
  REQUIRE(contents);
  const HWND restore = ReadyControl(contents, IDC_cmdRestore);
  const HWND list = Control(contents, IDC_ContentsList);
  const auto rows = ListRows(list);
  CHECK(rows.size() > 3);
  bool found = false;
  for (const auto& row : rows) {
    CHECK(row.checked);
    found = found || (row.texts[2] == "C:\\planted\\evil.dll" && row.texts[4] == "missing");
  }
  CHECK(found);
  SortContents(list);
  Click(restore);
}

}  // namespace

TEST_SUITE_BEGIN("ui_removal");

TEST_CASE("what was backed up and removed comes back byte for byte") {
  PlantEvil();
  SetSetting("Backup", "BackupBeforeRemoval", "False");
  SetSetting("UseRegEdit", "UseRegEdit", "True");
  const std::string tree = FolderSnapshot("C:\\planted");
  const std::string precious = FolderSnapshot("C:\\precious");
  REQUIRE(precious.find("dearest") != std::string::npos);
  PlantFile("C:\\planted\\newer.txt", 3);
  Program program("\"C:\\planted\"");
  HWND top = ScanToResults(&program);

  Click(ReadyControl(top, IDC_cmdBackup));
  const HWND ask = program.Window("Backup File Name");
  REQUIRE(ask);
  SetText(Control(ask, IDC_txtAnswer), "test one");
  Click(Control(ask, IDOK));
  Answer(&program, "Information", IDOK);
  CHECK(files.ShortPath("C:\\Scourwell\\test one.qzp") != "");

  Click(ReadyControl(top, IDC_cmdDelete));
  AnswerAgainst(&program, "Confirmation", IDCANCEL, IDOK);
  CHECK(CloseOutcome(&program).find("C:\\planted\\EvilHome - removed") != std::string::npos);
  CHECK(FolderSnapshot("C:\\planted").find("EvilHome") == std::string::npos);
  CHECK(FolderSnapshot("C:\\planted").find("evil.dll") == std::string::npos);
  CHECK(Content("C:\\planted\\innocent.dll") != "");
  CHECK(LogText().find("\r\nRemoval ") != std::string::npos);
  CHECK(LogText().find("Spy File: C:\\planted\\evil.dll - removed\r\n") != std::string::npos);

  Command(top, IDM_mnuBackups);
  const HWND manager = program.Window("Backup Management");
  REQUIRE(manager);
  const HWND list = Control(manager, IDC_BackupList);
  REQUIRE(ListRows(list).size() == 1);
  CHECK(ListRows(list)[0].texts[1] == "test one.qzp");
  Click(ReadyControl(manager, IDC_cmdRestore));
  ConfirmRestore(&program);
  const HWND done = program.Window("Information", 60000);
  REQUIRE(done);
  PostMessageW(done, WM_COMMAND, IDOK, 0);
  Erase("C:\\planted\\newer.txt");
  CHECK(FolderSnapshot("C:\\planted") == tree);
  CHECK(FolderSnapshot("C:\\precious") == precious);

  Click(ReadyControl(manager, IDC_cmdClean));
  AnswerAgainst(&program, "Confirmation", IDNO, IDYES);
  CHECK(WaitFor([&] { return ListRows(list).empty(); }));
  Click(Control(manager, IDCANCEL));
  CHECK(program.Close());
  CHECK(Errors() == "");
}

TEST_CASE("what was removed says so in the list and is neither asked for nor backed up again") {
  PlantEvil();
  SetSetting("Backup", "BackupBeforeRemoval", "True");
  const auto backups = [] {
    std::vector<std::string> names;
    static_cast<void>(files.List("C:\\Scourwell\\*.qzp", [&](const DirEntry& entry) {
      names.push_back("C:\\Scourwell\\" + entry.name);
      return true;
    }));
    return names;
  };
  REQUIRE(backups().empty());
  Program program("\"C:\\planted\"");
  HWND top = ScanToResults(&program);
  HWND list = Control(top, IDC_SpyListView);
  CHECK(ListRows(list)[0].texts.size() == 3);
  Click(ReadyControl(top, IDC_cmdDelete));
  Answer(&program, "Confirmation", IDOK);
  CHECK(CloseOutcome(&program).find("C:\\planted\\EvilHome - removed") != std::string::npos);
  // Who leaves the list comes back to it, as it was.
  Click(ReadyControl(top, IDC_cmdCloseResults));
  REQUIRE(ReadyControl(top, IDC_imgSearch));
  Command(top, IDM_mnuLastResults);
  list = ReadyControl(top, IDC_SpyListView);
  REQUIRE(list);
  const std::string counted = Setting("Statistics", "NUMBER OF OBJECTS");
  std::vector<ListRow> rows;
  REQUIRE(WaitFor([&] { return !(rows = ListRows(list)).empty(); }));
  for (const ListRow& row : rows) {
    CAPTURE(row.texts[2]);
    CHECK_FALSE(row.checked);
    REQUIRE(row.texts.size() == 4);
    CHECK((row.texts[3] == "removed" || row.texts[3] == "was not there any more"));
  }
  CHECK(backups().size() == 1);
  Click(ReadyControl(top, IDC_cmdCheckAll));
  Click(ReadyControl(top, IDC_cmdContinue));
  CHECK(ReadyControl(top, IDC_imgSearch, 10000));  // the start page, without a question
  CHECK(backups().size() == 1);
  CHECK(Setting("Statistics", "NUMBER OF OBJECTS") == counted);
  CHECK(program.Close());
  for (const std::string& backup : backups()) Erase(backup);
}

TEST_CASE("an unattended scan backs up, removes, tells and counts") {
  PlantEvil();
  SetSetting("AutoRemove", "AutoRemove", "True");
  const std::string precious = FolderSnapshot("C:\\precious");
  const std::string key = KeySnapshot(RootKey::LocalMachine, kEvilKey);
  const std::string run = KeySnapshot(RootKey::LocalMachine, kRun);
  const std::string tree = FolderSnapshot("C:\\planted");
  Program program("/STARTUP");
  REQUIRE(program.MainWindow());
  const std::string outcome = CloseOutcome(&program);
  CAPTURE(outcome);
  CHECK(outcome.find("C:\\planted\\evil.dll - removed") != std::string::npos);
  CHECK(FolderSnapshot("C:\\planted").find("vil") == std::string::npos);
  CHECK(KeySnapshot(RootKey::LocalMachine, kEvilKey) == "");
  CHECK(KeySnapshot(RootKey::LocalMachine, kRun).find("EvilStart") == std::string::npos);
  // Links lead out of a folder that is deleted; what they lead to stays.
  CHECK(FolderSnapshot("C:\\precious") == precious);
  CHECK(Setting("Statistics", "NUMBER OF OBJECTS") != "");
  CHECK(program.Close());

  // And all of it comes back from the backup that was made of itself.
  Program second("");
  HWND top = second.MainWindow();
  REQUIRE(top);
  Command(top, IDM_mnuBackups);
  const HWND manager = second.Window("Backup Management");
  REQUIRE(manager);
  REQUIRE(ListRows(Control(manager, IDC_BackupList)).size() == 1);
  Click(ReadyControl(manager, IDC_cmdRestore));
  ConfirmRestore(&second);
  const HWND done = second.Window("Information", 60000);
  REQUIRE(done);
  PostMessageW(done, WM_COMMAND, IDOK, 0);
  CHECK(KeySnapshot(RootKey::LocalMachine, kEvilKey) == key);
  CHECK(KeySnapshot(RootKey::LocalMachine, kRun) == run);
  CHECK(FolderSnapshot("C:\\planted") == tree);
  CHECK(FolderSnapshot("C:\\precious") == precious);
  CHECK(WaitFor([&] { return !IsWindow(done); }));
  Click(ReadyControl(manager, IDC_cmdClean));
  Answer(&second, "Confirmation", IDYES);
  CHECK(second.Close());
}

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

TEST_CASE("the menu of the results checks a spy's rows, groups by spy and excludes one component") {
  PlantMachine();
  Program program("\"C:\\planted\"");
  const HWND top = ScanToResults(&program);
  const HWND list = Control(top, IDC_SpyListView);
  const std::vector<std::string> spies = Column(list, 1);
  const auto unchecked = [&] {
    std::vector<std::string> names;
    for (const ListRow& row : ListRows(list)) {
      if (!row.checked) names.push_back(row.texts[1]);
    }
    return names;
  };
  const std::string spy = spies.front();
  const std::vector<std::string> its(static_cast<std::size_t>(std::ranges::count(spies, spy)), spy);
  REQUIRE(its.size() < spies.size());
  SelectRow(list, 0);
  const HWND pane = GetParent(list);
  Command(pane, IDM_mnuUncheckSpy);
  CHECK(WaitFor([&] { return unchecked() == its; }));
  Command(pane, IDM_mnuCheckSpy);
  CHECK(WaitFor([&] { return unchecked().empty(); }));
  Command(pane, IDM_mnuGroupBySpy);
  const std::string counted = " (" + std::to_string(its.size()) + ")";
  CHECK(WaitFor([&] { return std::ranges::count(Column(list, 1), spy + counted) == 1; }));
  Command(pane, IDM_mnuGroupBySpy);
  CHECK(WaitFor([&] { return Column(list, 1) == spies; }));
  const std::string place = Column(list, 2)[0];
  SelectRow(list, 0);
  Command(pane, IDM_mnuExclude);
  Answer(&program, "Confirmation", IDYES);
  CHECK(WaitFor([&] { return ListRows(list).size() == spies.size() - 1; }));
  CHECK(std::ranges::count(Column(list, 2), place) == 0);
  CHECK(program.Close());
  Erase("C:\\Scourwell\\ignorespylist.txt");
}

TEST_CASE("excluded components stay away until they are taken out of the ignore list") {
  PlantEvil();
  const auto details = [](Program* program, HWND* top) {
    *top = ScanToResults(program);
    return Details(Control(*top, IDC_SpyListView));
  };
  std::string all;
  {
    Program program("\"C:\\planted\"");
    HWND top = nullptr;
    all = details(&program, &top);
    REQUIRE(all.find("evil.dll") != std::string::npos);
    Click(ReadyControl(top, IDC_cmdExclude));
    AnswerAgainst(&program, "Confirmation", IDNO, IDYES);
    CHECK(WaitFor([&] { return ListRows(Control(top, IDC_SpyListView)).empty(); }));
    CHECK(program.Close());
  }
  CHECK(Content("C:\\Scourwell\\ignorespylist.txt").find("\"C:\\planted\\evil.dll\"") !=
        std::string::npos);
  Program program("\"C:\\planted\"");
  HWND top = program.MainWindow();
  REQUIRE(top);
  REQUIRE(WaitFor(LogIsComplete, 60000));
  Click(ReadyControl(top, IDC_cmdNext));
  Answer(&program, "Information", IDOK);
  Command(top, IDM_mnuIgnoreList);
  const HWND manager = program.Window("Ignore List");
  REQUIRE(manager);
  CHECK_FALSE(ListRows(Control(manager, IDC_IgnoreListView)).empty());
  Click(ReadyControl(manager, IDC_cmdCheckAll));
  Click(ReadyControl(manager, IDC_CmdRemove));
  CHECK(WaitFor([&] { return ListRows(Control(manager, IDC_IgnoreListView)).empty(); }));
  CHECK(Content("C:\\Scourwell\\ignorespylist.txt") == "");
  Click(Control(manager, IDCANCEL));
  CHECK(program.Close());
  Program again("\"C:\\planted\"");
  CHECK(details(&again, &top) == all);
  CHECK(again.Close());
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
