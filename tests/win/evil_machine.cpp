// SPDX-License-Identifier: MIT
#include "tests/win/evil_machine.h"

#include "platform/registry.h"
#include "platform/win/files_win.h"
#include "platform/win/registry_win.h"

namespace scourwell::ui {
namespace {

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
  Set(kEvilKey, "\u00E4\u00F6\u00FC", kRegText, string("\u00DF\0", 3));
  // Windows 95, 98 and Me have no letters but those of their code page.
  if (!RunsAs9x()) Set(kEvilKey, "\u0142\u8868", kRegExpandText, string("\u0142\0", 3));
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

}  // namespace

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

void Answer(Program* program, const std::string& title, int button) {
  const HWND box = program->Window(title, 30000);
  REQUIRE_MESSAGE(box, title);
  PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
  CHECK(WaitFor([&] { return !IsWindow(box); }));
}

void AnswerAgainst(Program* program, const std::string& title, int default_button, int button) {
  const HWND box = program->Window(title);
  REQUIRE(box);
  // The box of Wine does not know its own default button, but that button does.
  const auto is_default = [&] {
    const LONG style = GetWindowLongW(GetDlgItem(box, default_button), GWL_STYLE);
    return (style & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
  };
  CHECK(WaitFor(is_default, 5000));
  Answer(program, title, button);
}

std::string CloseOutcome(Program* program) {
  const HWND outcome = program->Window("Spy ware removal results", 60000);
  REQUIRE(outcome);
  std::string text;
  for (const ListRow& row : ListRows(Control(outcome, IDC_lstObjects))) {
    text += row.texts[2] + " - " + row.texts[3] + "\n";
  }
  Click(Control(outcome, IDOK));
  CHECK(WaitFor([&] { return !IsWindow(outcome); }));
  return text;
}

}  // namespace scourwell::ui
