// SPDX-License-Identifier: MIT

// The startup manager, driven through its window on a planted machine.
#include <map>

#include "machine/cregister.h"
#include "platform/win/desktop_win.h"
#include "platform/win/system_win.h"
#include "tests/win/ui_tool.h"

namespace scourwell::ui {
namespace {

constexpr RootKey kUser = RootKey::CurrentUser;
constexpr RootKey kMachine = RootKey::LocalMachine;
constexpr char kVersion[] = "Software\\Microsoft\\Windows\\CurrentVersion\\";
constexpr char kLines[] = "Software\\Microsoft\\Windows NT\\CurrentVersion\\Windows";
constexpr char kSaveProf[] = "C:\\Scourwell\\SaveProf.pro";
constexpr int kStartupFolder = 7;
constexpr int kCommonStartupFolder = 24;

FilesWin files;
RegistryWin registry;

std::string Run(const std::string& key) { return kVersion + key; }

struct Planted {
  RootKey root;
  const char* key;
  const char* name;
  std::uint32_t type;
  std::string data;
};

std::vector<Planted> PlantedValues() {
  return {{kMachine, "Run", "Planted", kRegText, Z("\"C:\\no file\\x.exe\" /a")},
          {kMachine, "Run", "Planted data", kRegBinary, "\1\2\3"},
          {kMachine, "RunOnce", "Planted once", kRegText, Z("once.exe")},
          {kMachine, "RunOnceEx", "Planted ex", kRegText, Z("ex.exe")},
          {kMachine, "RunServices", "Planted service", kRegText, RunsAs9x() ? Z("end") : "no end"},
          {kUser, "Run", "Planted user", kRegExpandText, Z("%WinDir%\\notepad.exe")}};
}

std::string Startup(int folder) { return SystemWin().ShellFolder(folder) + "\\"; }
std::string UserLink() { return Startup(kStartupFolder) + "Planted link.lnk"; }
std::string CommonLink() { return Startup(kCommonStartupFolder) + "Planted common.lnk"; }

std::vector<std::string> Backups() {
  std::vector<std::string> names;
  static_cast<void>(files.List("C:\\Scourwell\\*.qzp", [&](const DirEntry& entry) {
    names.push_back(kProgramFolder + entry.name);
    return true;
  }));
  return names;
}

void PlantStartup() {
  PlantMachine();
  for (const std::string& backup : Backups()) Erase(backup);
  static_cast<void>(files.EraseFile(kSaveProf));
  for (const Planted& value : PlantedValues()) {
    REQUIRE(registry.SetValue(value.root, Run(value.key), value.name, {value.type, value.data}) ==
            kRegOk);
  }
  registry.SetValue(kUser, kLines, "load", {kRegText, Z("\"C:\\planted one.exe\", planted2")});
  registry.SetValue(kUser, kLines, "run", {kRegText, Z("planted3")});
  ShellWin shell;
  for (const std::string& link : {UserLink(), CommonLink()}) {
    static_cast<void>(files.EraseFile(link));
    REQUIRE(shell.CreateShortcut(link, "C:\\windows\\notepad.exe", "/planted").ok());
  }
}

// Everything that was planted, byte for byte.
std::string State() {
  std::string state;
  const auto add = [&](RootKey root, const std::string& key, const std::string& name) {
    RegValue value;
    const bool there = registry.QueryValue(root, key, name, &value) == kRegOk;
    state += name + "=" + (there ? std::to_string(value.type) + ":" + value.data : "none") + "\n";
  };
  for (const Planted& value : PlantedValues()) add(value.root, Run(value.key), value.name);
  add(kUser, kLines, "load");
  add(kUser, kLines, "run");
  return state + Content(UserLink()) + "\n" + Content(CommonLink());
}

// The status of each row whose name has "lanted" in it.
std::map<std::string, std::string> Statuses(HWND list) {
  std::map<std::string, std::string> statuses;
  for (const ListRow& row : ListRows(list)) {
    if (row.texts[0].find("lanted") != std::string::npos) {
      statuses[row.texts[0] + "/" + row.texts[2]] = row.texts[1];
    }
  }
  return statuses;
}

std::size_t CountOf(HWND list, const std::string& status) {
  std::size_t count = 0;
  for (const auto& [name, each] : Statuses(list)) count += each == status ? 1 : 0;
  return count;
}

}  // namespace

TEST_SUITE_BEGIN("ui_startup");

TEST_CASE("startup entries of all places are disabled, come back as they were, and go for good") {
  PlantStartup();
  const std::string before = State();
  Program program("");
  {
    Tool tool(program, IDM_mnuStartupManager, "Startup Manager");
    CHECK(Statuses(tool.list) == std::map<std::string, std::string>{
                                     {"Planted/Registry(Machine Run)", "Enabled"},
                                     {"Planted data/Registry(Machine Run)", "Enabled"},
                                     {"Planted once/Registry(Machine RunOnce)", "Enabled"},
                                     {"Planted ex/Registry(Machine RunOnceEx)", "Enabled"},
                                     {"Planted service/Registry(Machine RunServices)", "Enabled"},
                                     {"Planted user/Registry(User Run)", "Enabled"},
                                     {"C:\\planted one.exe/Win.ini Load", "Enabled"},
                                     {"planted2/Win.ini Load", "Enabled"},
                                     {"planted3/Win.ini Run", "Enabled"},
                                     {"Planted link/StartUp (Current User)", "Enabled"},
                                     {"Planted common/StartUp (All Users)", "Enabled"}});
    SetText(Control(tool.window, IDC_txtFilter), "lanted");
    CHECK(WaitFor([&] { return ListRows(tool.list).size() == 11; }));
    for (int row = 0; row < 8; ++row) tool.Toggle(row);
    // Several rows at once, by the menu of the list.
    SelectRows(tool.list, 8, 10);
    Command(tool.window, IDC_cmdDisable);
    CHECK(WaitFor([&] { return CountOf(tool.list, "Disabled (pending)") == 11; }));
    CHECK(State() == before);
    tool.Apply();
    CHECK(State().find("exe") == std::string::npos);
    CHECK(Content(kSaveProf).find("Planted link\r\nDisabled\r\nStartUp (Current User)\r\n") !=
          std::string::npos);
    tool.Close();
  }
  Tool tool(program, IDM_mnuStartupManager, "Startup Manager");
  CHECK(CountOf(tool.list, "Disabled") == 11);

  Command(tool.window, IDM_keySave);
  AnswerFileDialog(program, "Save", "C:\\planted\\mine.Pro");
  CHECK(WaitFor([&] { return Content("C:\\planted\\mine.Pro") == Content(kSaveProf); }));

  Command(tool.window, IDM_keyResetAll);
  CHECK(WaitFor([&] { return CountOf(tool.list, "Enabled (pending)") == 11; }));
  tool.Apply();
  CHECK(State() == before);
  CHECK(Content(kSaveProf).empty());

  Command(tool.window, IDM_keyLoad);
  AnswerFileDialog(program, "Open", "C:\\planted\\mine.Pro");
  CHECK(WaitFor([&] { return CountOf(tool.list, "Disabled (pending)") == 11; }));
  Command(tool.window, IDM_keyResetAll);
  CHECK(WaitFor([&] { return CountOf(tool.list, "Enabled") == 11; }));

  for (const std::string name : {"Planted data", "planted2", "Planted link"}) {
    SelectRow(tool.list, RowOf(tool.list, name));
    Click(ReadyControl(tool.window, IDC_cmdToolRemove));
  }
  CHECK(WaitFor([&] { return CountOf(tool.list, "Remove (pending)") == 3; }));
  for (const int answer : {IDNO, IDYES}) {
    CHECK_FALSE(Content(UserLink()).empty());
    Click(ReadyControl(tool.window, IDC_cmdApply));
    Answer(program.Window("Confirmation"), answer);
  }
  CHECK(WaitFor([&] { return !IsWindowEnabled(Control(tool.window, IDC_cmdApply)); }));
  CHECK(CountOf(tool.list, "Enabled") == 8);
  // What was removed for good is in a backup.
  CHECK(Backups().size() == 1);
  CHECK(State().find("Planted data=none\n") != std::string::npos);
  CHECK(Content(UserLink()).empty());
  tool.Close();
  CHECK(program.Close());
  CHECK(program.ExitCode() == 0);
  CHECK(Errors() == "");
  for (const Planted& value : PlantedValues()) {
    registry.DeleteValue(value.root, Run(value.key), value.name);
  }
  for (const char* line : {"load", "run"}) registry.DeleteValue(kUser, kLines, line);
  Erase(CommonLink());
}

TEST_CASE("a task is added by the dialog, and marks are not lost by closing") {
  PlantMachine();
  Program program("");
  Tool tool(program, IDM_mnuStartupManager, "Startup Manager");
  Command(tool.window, IDM_keyAddTask);
  const HWND dialog = program.Window("Add Task");
  REQUIRE(dialog);
  SetText(ReadyControl(dialog, IDC_txtTaskName), "Planted task");
  SetText(ReadyControl(dialog, IDC_txtTaskProgram), "C:\\windows\\notepad.exe /x");
  Click(ReadyControl(dialog, IDC_cmdTaskOk));
  CHECK(WaitFor([&] { return CountOf(tool.list, "Enabled") == 1; }));
  CHECK(CRegister(registry).QueryString(kMachine, Run("Run"), "Planted task") ==
        "C:\\windows\\notepad.exe /x");
  SelectRow(tool.list, RowOf(tool.list, "Planted task"));
  Click(ReadyControl(tool.window, IDC_cmdToolRemove));
  CHECK(WaitFor([&] { return CountOf(tool.list, "Remove (pending)") == 1; }));
  PostMessageW(tool.window, WM_CLOSE, 0, 0);
  HWND box = nullptr;
  REQUIRE(WaitFor([&] {
    box = GetLastActivePopup(tool.window);
    return box != tool.window;
  }));
  Answer(box, IDYES);
  Answer(program.Window("Confirmation"), IDYES);
  CHECK(WaitFor([&] { return !IsWindow(tool.window); }));
  CHECK(CRegister(registry).QueryString(kMachine, Run("Run"), "Planted task") == "");
  CHECK(program.Close());
}

TEST_CASE("damaged profiles are told of, and recorded under the tools' names") {
  struct Row {
    const char* file;
    int command;
    const char* method;
  };
  for (const Row& row : {Row{"SaveProf.pro", IDM_mnuStartupManager, "FRM Startup - Form_Load"},
                         {"BHOProf.pro", IDM_mnuBrowserHelpers, "BHO Form_Load"}}) {
    PlantMachine();
    PlantContent(std::string(kProgramFolder) + row.file, "half a record\r\n");
    Program program("");
    REQUIRE(ReadyControl(program.MainWindow(), IDC_imgSearch));
    Command(program.MainWindow(), row.command);
    Answer(program.Window("Error"), IDOK);
    CHECK(Errors().find(std::string("Method: ") + row.method) != std::string::npos);
    CHECK(program.Close());  // with the tool still open
    CHECK(Content(std::string(kProgramFolder) + row.file) == "half a record\r\n");
    Erase(std::string(kProgramFolder) + row.file);
  }
}

TEST_SUITE_END();

}  // namespace scourwell::ui
