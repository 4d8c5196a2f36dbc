// SPDX-License-Identifier: MIT

// The adware uninstaller and the browser-helper manager, driven through their windows.
#include "tests/win/ui_tool.h"

namespace scourwell::ui {
namespace {

constexpr RootKey kMachine = RootKey::LocalMachine;
constexpr char kVersion[] = "Software\\Microsoft\\Windows\\CurrentVersion\\";
constexpr char kHelper[] = "{11111111-2222-3333-4444-555555555555}";

FilesWin files;
RegistryWin registry;

std::string Run(const std::string& key) { return kVersion + key; }
std::string HelperPath() { return Run("Explorer\\Browser Helper Objects\\") + kHelper; }

}  // namespace

TEST_SUITE_BEGIN("ui_tools");

TEST_CASE("known adware is listed and its uninstaller started after the question") {
  const std::string uninstall = Run("Uninstall\\");
  const auto plant = [&](const char* key, const char* name, const char* command) {
    registry.SetValue(kMachine, uninstall + key, "DisplayName", {kRegText, Z(name)});
    registry.SetValue(kMachine, uninstall + key, "UninstallString", {kRegText, Z(command)});
  };
  PlantMachine();
  PlantContent(kReference, PlantedDefinitions()
                               .Entry("ADRE", {"WCL"}, {"planted bar"})
                               .Entry("ADRE", {"ESL"}, {"Planted Exact"})
                               .Text());
  plant("planted a", "The Planted BAR",
        "C:\\windows\\system32\\cmd.exe /c echo x> C:\\planted\\ran.txt");
  plant("planted b", "planted exact", "");
  plant("planted c", "Planted Exact Not", "");
  plant("zzz last", "Planted Bar Too", "");
  static_cast<void>(files.EraseFile("C:\\planted\\ran.txt"));
  {
    Program program("");
    Tool tool(program, IDM_mnuAdwareUninstaller, "Adware Uninstaller");
    CHECK(WaitFor([&] { return ListRows(tool.list).size() == 2; }));
    CHECK(Text(Control(tool.window, IDC_lblToolStatus)) == "Adware programs found: 2");
    const int row = RowOf(tool.list, "The Planted BAR");
    REQUIRE(row >= 0);
    CHECK(RowOf(tool.list, "planted exact") >= 0);
    SelectRow(tool.list, row);
    for (const int answer : {IDNO, IDYES}) {
      CHECK(Content("C:\\planted\\ran.txt").empty());
      Click(ReadyControl(tool.window, IDC_cmdToolRemove));
      Answer(program.Window("Confirmation"), answer);
    }
    CHECK(WaitFor([] { return !Content("C:\\planted\\ran.txt").empty(); }));
    Click(ReadyControl(tool.window, IDC_cmdShowAll));
    CHECK(WaitFor([&] { return RowOf(tool.list, "Planted Exact Not") >= 0; }));
    CHECK(RowOf(tool.list, "Planted Bar Too") < 0);
    PlantContent(kReference, PlantedDefinitions().Text());
    Click(ReadyControl(tool.window, IDC_cmdShowSpies));
    Answer(program.Window("Information"), IDOK);
    CHECK(ListRows(tool.list).empty());
    CHECK(Text(Control(tool.window, IDC_lblToolEmpty)) ==
          "No known adware program is installed.\r\nShow All lists every installed program.");
    CHECK_FALSE(IsWindowEnabled(Control(tool.window, IDC_cmdShowSpies)));
    CHECK(IsWindowEnabled(Control(tool.window, IDC_cmdShowAll)));
    CHECK(program.Close());
  }
  for (const char* key : {"planted a", "planted b", "planted c", "zzz last"}) {
    registry.DeleteKeyCall(kMachine, uninstall + key);
  }
}

TEST_CASE("a helper leaves the browser's list and returns with all its values") {
  PlantMachine();
  const auto class_key = std::string("CLSID\\") + kHelper;
  registry.SetValue(kMachine, HelperPath(), "", {kRegText, Z("Planted")});
  registry.SetValue(kMachine, HelperPath(), "NoExplorer", {kRegDword, std::string("\1\0\0\0", 4)});
  registry.SetValue(kMachine, HelperPath() + "\\Sub", "v", {kRegBinary, "\xFF"});
  registry.SetValue(RootKey::ClassesRoot, class_key, "", {kRegText, Z("Planted helper")});
  registry.SetValue(RootKey::ClassesRoot, class_key + "\\InprocServer32", "",
                    {kRegText, Z("C:\\windows\\system32\\shell32.dll")});
  const auto state = [&] {
    std::string text;
    for (const std::string& key : {HelperPath(), HelperPath() + "\\Sub"}) {
      registry.EnumValues(kMachine, key, [&](const std::string& name, const RegValue& value) {
        text += name + "=" + std::to_string(value.type) + ":" + value.data + "\n";
        return true;
      });
    }
    return text;
  };
  const std::string before = state();
  Program program("");
  Tool tool(program, IDM_mnuBrowserHelpers, "Browser Helper Manager");
  const int row = RowOf(tool.list, "Planted helper");
  REQUIRE(row >= 0);
  const ListRow shown = ListRows(tool.list)[static_cast<std::size_t>(row)];
  CHECK(shown.texts[2] == kHelper);
  CHECK(shown.texts[3] == "C:\\windows\\system32\\shell32.dll");
  CHECK(shown.texts[4] == "Found");
  const int status = ColumnHeads(tool.list)[1].width;
  tool.Toggle(row);
  CHECK(ColumnHeads(tool.list)[1].width == status);  // a mark moves no column
  tool.Apply();
  CHECK(registry.TryOpen(kMachine, HelperPath(), kKeyRead) == kRegNotFound);
  CHECK_FALSE(Content("C:\\Scourwell\\BHOProf.pro").empty());
  tool.Close();
  Tool again(program, IDM_mnuBrowserHelpers, "Browser Helper Manager");
  again.Toggle(RowOf(again.list, "Planted helper"));
  again.Apply();
  CHECK(state() == before);
  CHECK(Content("C:\\Scourwell\\BHOProf.pro").empty());
  again.Close();
  CHECK(program.Close());
  CHECK(Errors() == "");
}

TEST_CASE("a window comes back where it was left, with its columns as wide") {
  PlantMachine();
  const auto place = [](HWND window) {
    RECT rect = {};
    GetWindowRect(window, &rect);
    return std::vector<LONG>{rect.left, rect.top, rect.right, rect.bottom};
  };
  std::vector<LONG> places[2];
  std::vector<int> widths[2];
  for (const int run : {0, 1}) {
    Program program("");
    const HWND top = program.MainWindow();
    REQUIRE(top);
    Tool tool(program, IDM_mnuStartupManager, "Startup Manager");
    if (run == 0) {
      SetWindowPos(top, nullptr, 33, 44, 777, 511, SWP_NOZORDER);
      SetWindowPos(tool.window, nullptr, 11, 22, 701, 456, SWP_NOZORDER);
      const int before = ColumnHeads(tool.list)[0].width;
      DragHead(tool.list, 0, 60);
      CHECK(ColumnHeads(tool.list)[0].width == before + 60);
    }
    for (const TextPart& head : ColumnHeads(tool.list)) widths[run].push_back(head.width);
    places[run] = place(top);
    for (const LONG edge : place(tool.window)) places[run].push_back(edge);
    tool.Close();
    CHECK(program.Close());
  }
  CHECK(places[0] == std::vector<LONG>{33, 44, 810, 555, 11, 22, 712, 478});
  CHECK(places[1] == places[0]);
  CHECK(widths[1] == widths[0]);
}

TEST_SUITE_END();

}  // namespace scourwell::ui
