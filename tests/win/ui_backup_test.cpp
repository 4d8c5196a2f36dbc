// SPDX-License-Identifier: MIT

// Backup, restore and exclusion through the windows of the built program.
#include <algorithm>

#include "platform/registry.h"
#include "platform/win/files_win.h"
#include "tests/win/evil_machine.h"
#include "tests/win/snapshot.h"
#include "text/text.h"

namespace scourwell::ui {
namespace {

FilesWin files;

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

TEST_SUITE_BEGIN("ui_backup");

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
  const std::string counted = Setting("Statistics", "NUMBER OF OBJECTS");
  std::vector<ListRow> rows;
  // The list that was left may still be there for a moment.
  REQUIRE(WaitFor([&] { return !(rows = ListRows(Control(top, IDC_SpyListView))).empty(); }));
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

TEST_SUITE_END();

}  // namespace scourwell::ui
