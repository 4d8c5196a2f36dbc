// Removal, backup, restore and exclusion through the windows of the built program.
#include "platform/registry_access.h"
#include "platform/win/files_win.h"
#include "platform/win/registry_win.h"
#include "tests/win/snapshot.h"
#include "tests/win/ui_machine.h"

namespace scourwell::ui {
namespace {

constexpr char kEvilKey[] = "Software\\EvilCorp";
constexpr char kRun[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr char kHome[] = "C:\\planted\\EvilHome";

FilesWin files;
RegistryWin registry;

void Set(const std::string& key, const std::string& name, std::uint32_t type,
         const std::string& data) {
  REQUIRE(registry.SetValue(RootKey::LocalMachine, key, name, {type, data}) == kRegOk);
}

// Every type of value, in a key with subkeys and with names that a script must escape.
void PlantRegistry() {
  using std::string;
  Set(kEvilKey, "", kRegText, string("default\0", 8));
  Set(kEvilKey, "quote \" back\\slash [x]", kRegText, string("C:\\a \"b\"\0", 9));
  Set(kEvilKey, "lines", kRegText, string("a\r\nb\0", 5));
  Set(kEvilKey, "\xE4\xF6\xFC", kRegText, string("\xDF\0", 2));
  Set(kEvilKey, "no end", kRegText, "abc");
  Set(kEvilKey, "expand", kRegExpandText, string("%TEMP%\\x\0", 9));
  Set(kEvilKey, "many", kRegMultiText, string("one\0two\0\0", 9));
  Set(kEvilKey, "dword", kRegDword, string("\x78\x56\x34\x12", 4));
  Set(kEvilKey, "binary", kRegBinary, string("\0\x01\xFF\n", 4));
  Set(kEvilKey, "long", kRegBinary, string(300, '\x5A'));
  Set(kEvilKey, "empty", kRegBinary, "");
  Set(kEvilKey, "none", kRegNone, "x");
  Set(string(kEvilKey) + "\\sub [1]\\deep", "v", kRegDword, string("\1\0\0\0", 4));
  Set(string(kEvilKey) + "\\empty", "", kRegText, string("\0", 1));
  Set(kRun, "EvilStart", kRegExpandText, string("%SystemRoot%\\evil.exe\0", 22));
}

void PlantFiles() {
  for (const char* folder :
       {kHome, "C:\\planted\\EvilHome\\empty", "C:\\planted\\EvilHome\\deep"}) {
    CreateDirectoryA(folder, nullptr);
  }
  PlantFile("C:\\planted\\evil.dll", 3000);
  PlantFile("C:\\planted\\EvilHome\\settings.dat", 0);
  PlantFile("C:\\planted\\EvilHome\\deep\\read me.txt", 70000);
  const struct {
    const char* path;
    std::uint32_t attributes;
  } attributes[] = {{"C:\\planted\\evil.dll", kReadOnly},
                    {"C:\\planted\\EvilHome\\settings.dat", kHidden | kSystem},
                    {"C:\\planted\\EvilHome\\empty", kHidden}};
  const FileTimes old = {0, 0, 126'000'000'000'000'000};
  for (const char* path : {"C:\\planted\\evil.dll", "C:\\planted\\EvilHome\\settings.dat",
                           "C:\\planted\\EvilHome\\deep\\read me.txt",
                           "C:\\planted\\EvilHome\\empty", "C:\\planted\\EvilHome\\deep", kHome}) {
    static_cast<void>(files.SetTimes(path, old));
  }
  for (const auto& each : attributes) {
    REQUIRE(files.SetAttributes(each.path, each.attributes).ok());
  }
}

// What earlier tests left or took.
void PlantEvil() {
  PlantMachine();
  static_cast<void>(files.SetAttributes("C:\\planted\\evil.dll", 0));
  static_cast<void>(files.EraseFile("C:\\Scourwell\\ignorespylist.txt"));
  PlantFiles();
  PlantRegistry();
  PlantContent(kReference,
               test::Definitions()
                   .Entry("SAFI", {"SAFIT", "SAFIS"}, {"Adware.Evil", "EVIL.DLL"})
                   .Entry("SAFO", {"SAFOT", "SAFOS"}, {"Adware.Evil", "EvilHome"})
                   .Entry("REGK", {"REGKT", "REGKK"},
                          {"Adware.Evil", std::string("HKEY_LOCAL_MACHINE\\") + kEvilKey})
                   .Entry("REGV", {"REGVT", "REGVK", "REGVV"},
                          {"Adware.Evil", std::string("HKEY_LOCAL_MACHINE\\") + kRun, "EvilStart"})
                   .Text());
}

// Scans and comes to the list of results.
HWND ScanToResults(Program* program) {
  const HWND top = program->MainWindow();
  REQUIRE(top);
  const HWND next = ReadyControl(top, IDC_cmdNext, 60000);
  REQUIRE(next);
  Click(next);
  REQUIRE(ReadyControl(top, IDC_SpyListView));
  return top;
}

std::string Details(HWND list) {
  std::string text;
  for (const ListRow& row : ListRows(list)) text += row.texts[2] + "\n";
  return text;
}

// Answers a message box or dialog, if it has that title, and waits until it is gone.
void Answer(Program* program, const std::string& title, int button) {
  const HWND box = program->Window(title, 30000);
  REQUIRE_MESSAGE(box, title);
  PostMessageA(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
  CHECK(WaitFor([&] { return !IsWindow(box); }));
}

// The objects of the outcome window, which is then closed.
std::string CloseOutcome(Program* program) {
  const HWND outcome = program->Window("Spy ware removal results", 60000);
  REQUIRE(outcome);
  const std::string text = Text(Control(outcome, IDC_txtObjects));
  Click(Control(outcome, IDOK));
  CHECK(WaitFor([&] { return !IsWindow(outcome); }));
  return text;
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
  SetWindowTextA(Control(ask, IDC_txtAnswer), "test one");
  SetText(Control(ask, IDC_txtAnswer), "test one");
  Click(Control(ask, IDOK));
  Answer(&program, "Information", IDOK);
  CHECK(files.ShortPath("C:\\Scourwell\\test one.qzp") != "");

  Click(ReadyControl(top, IDC_cmdDelete));
  Answer(&program, "Confirmation", IDOK);
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
  Answer(&program, "Confirmation", IDYES);
  const HWND done = program.Window("Information", 60000);
  REQUIRE(done);
  PostMessageA(done, WM_COMMAND, IDOK, 0);
  Erase("C:\\planted\\newer.txt");
  CHECK(FolderSnapshot("C:\\planted") == tree);
  CHECK(FolderSnapshot("C:\\precious") == precious);

  Click(ReadyControl(manager, IDC_cmdClean));
  Answer(&program, "Confirmation", IDYES);
  CHECK(WaitFor([&] { return ListRows(list).empty(); }));
  Click(Control(manager, IDCANCEL));
  CHECK(program.Close());
  CHECK(Errors() == "");
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
  Answer(&second, "Confirmation", IDYES);
  const HWND done = second.Window("Information", 60000);
  REQUIRE(done);
  PostMessageA(done, WM_COMMAND, IDOK, 0);
  CHECK(KeySnapshot(RootKey::LocalMachine, kEvilKey) == key);
  CHECK(KeySnapshot(RootKey::LocalMachine, kRun) == run);
  CHECK(FolderSnapshot("C:\\planted") == tree);
  CHECK(FolderSnapshot("C:\\precious") == precious);
  CHECK(WaitFor([&] { return !IsWindow(done); }));
  Click(ReadyControl(manager, IDC_cmdClean));
  Answer(&second, "Confirmation", IDYES);
  CHECK(second.Close());
}

TEST_CASE("a component is unregistered at a distance") {
  PlantEvil();
  test::Definitions definitions;
  for (const char* name : {"BEHAVES.DLL", "HANGS.DLL", "CRASHES.DLL"}) {
    definitions.Entry("SAFI", {"SAFIT", "SAFIS"}, {"Adware.Evil", name});
  }
  PlantContent(kReference, definitions.Text());
  CreateDirectoryA("C:\\components", nullptr);
  for (const char* name : {"behaves.dll", "hangs.dll", "crashes.dll"}) {
    REQUIRE(CopyFileA((std::string("C:\\") + name).c_str(),
                      (std::string("C:\\components\\") + name).c_str(), FALSE));
  }
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
    const FileHandle held(CreateFileA("C:\\planted\\EvilHome\\deep\\read me.txt", GENERIC_READ,
                                      FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    REQUIRE(held);
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
    CHECK((pending.data.find("read me.txt") != std::string::npos) == version.empty());
    CHECK(ini.starts_with(version.empty() ? "" : "[Rename]\r\nNUL=C:\\"));
    CHECK((ini.find("\r\nDIRNUL=C:\\planted\\EvilHome\r\n") != std::string::npos) ==
          !version.empty());
    CHECK(program.Close());
  }
  SetWindowsVersion("");
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
    Answer(&program, "Confirmation", IDYES);
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
  PlantEvil();
  test::Definitions definitions;
  CreateDirectoryA("C:\\components", nullptr);
  for (const std::string name : {"behaves.dll", "hangs.dll", "crashes.dll"}) {
    definitions.Entry("SAFI", {"SAFIT", "SAFIS"}, {"Adware.Evil", Upper(name)});
    REQUIRE(CopyFileA(("C:\\" + name).c_str(), ("C:\\components\\" + name).c_str(), FALSE));
  }
  PlantContent(kReference, definitions.Text());
  SetSetting("AutoRemove", "AutoRemove", "True");
  SetSetting("Backup", "BackupBeforeRemoval", "False");
  Program program("\"C:\\components\"");
  REQUIRE(program.MainWindow());
  // The second one takes its time.
  REQUIRE(WaitFor([] { return files.ShortPath("C:\\components\\behaves.dll").empty(); }, 60000));
  program.Close();
  CHECK(program.Ended(30000));
  CHECK(files.ShortPath("C:\\components\\crashes.dll") != "");
  CHECK(Setting("Statistics", "NUMBER OF OBJECTS") == "2");
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
  PostMessageA(warning, WM_COMMAND, IDOK, 0);
  const std::string outcome = CloseOutcome(&program);
  CAPTURE(outcome);
  CHECK(outcome.find("C:\\planted\\evil.dll - refused (The folder is a link: C:\\planted)") !=
        std::string::npos);
  CHECK(outcome.find("C:\\planted\\EvilHome - refused") != std::string::npos);
  CHECK(outcome.find("removed") == std::string::npos);
  CHECK(FolderSnapshot("C:\\precious") == precious);
  CHECK(Errors().find("The folder is a link") != std::string::npos);
  CHECK(program.Close());
}

TEST_SUITE_END();

}  // namespace scourwell::ui
