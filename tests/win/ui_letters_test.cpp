// SPDX-License-Identifier: MIT

// Letters that no single code page has, and paths longer than the old limit, in the program's
// windows: shown, typed, searched and chosen.
#include <windows.h>
#include <commctrl.h>

#include "tests/win/ui_tool.h"

namespace scourwell::ui {
namespace {

const std::string kPlace = "C:\\planted\\\u017C\u00F3\u0142w \u8868";
const std::string kHome = kPlace + "\\SpyHome";

FilesWin files;

// Files of the folder that the definitions name, which go at the end.
class PlantedNames {
 public:
  PlantedNames() {
    for (const std::string& folder : {kPlace, kHome}) REQUIRE(files.CreateFolder(folder).ok());
    for (const std::string& path : paths_) PlantContent(path, "x");
  }
  PlantedNames(const PlantedNames&) = delete;
  PlantedNames& operator=(const PlantedNames&) = delete;
  ~PlantedNames() {
    for (const std::string& path : paths_) static_cast<void>(files.EraseFile(path));
    for (const std::string& folder : {kHome, kPlace}) static_cast<void>(files.RemoveFolder(folder));
  }
  const std::vector<std::string>& paths() const { return paths_; }

 private:
  std::vector<std::string> paths_ = {
      kHome + "\\\u0141\u00F3dka.txt",
      kHome + "\\\u4E88\u5B9A\u8868 \u0436.txt",
      kHome + "\\\U0001F600.txt",
      kHome + "\\" + std::string(245, 'f') + ".txt",
  };
};

bool Finds(HWND viewer, const std::string& text) {
  const HWND box = Control(viewer, IDC_txtFile);
  SetText(Control(viewer, IDC_txtFind), text);
  const LRESULT before = Send(box, EM_GETSEL, 0, 0);
  Click(ReadyControl(viewer, IDC_cmdFind));
  return WaitFor([&] { return Send(box, EM_GETSEL, 0, 0) != before; }, 3000);
}

}  // namespace

TEST_SUITE_BEGIN("ui_letters");

TEST_CASE("names in any letters and of any length are found, listed, searched and saved") {
  PlantMachine();
  const PlantedNames names;
  Program program("\"" + kPlace + "\"");
  const HWND top = program.MainWindow();
  REQUIRE(top);
  Click(ReadyControl(top, IDC_cmdNext, 60000));
  const HWND list = ReadyControl(top, IDC_SpyListView);
  REQUIRE(list);
  std::string details;
  for (const ListRow& row : ListRows(list)) details += row.texts[2] + "\n";
  for (const std::string& path : names.paths()) {
    CHECK_MESSAGE(details.find(path + "\n") != std::string::npos, details);
  }
  Click(ReadyControl(top, IDC_cmdViewLog));
  const HWND viewer = program.WindowOfClass("frmLog");
  REQUIRE(viewer);
  CHECK(Finds(viewer, "\u0142\u00D3DKA"));  // without case
  CHECK(Finds(viewer, "\u5B9A\u8868"));
  const std::string copy = "C:\\planted\\Zapis \u017C\u00F3\u0142w \u4E88.txt";
  Click(ReadyControl(viewer, IDC_cmdSave));
  AnswerFileDialog(program, "Save the scan log", copy);
  CHECK(WaitFor([&] { return Content(copy) == LogText(); }));
  static_cast<void>(files.EraseFile(copy));
  CHECK(program.Close());
  CHECK(Errors() == "");
}

TEST_CASE(
    "the folder of the command line is scanned, not the one that is called so but for a dot") {
  PlantMachine();
  const std::string place = kPlace + ".";
  const std::string home = place + "\\SpyHome";
  const std::string file = home + "\\dotted.txt";
  for (const std::string& folder : {place, home}) REQUIRE(files.CreateFolder(folder).ok());
  PlantContent(file, "x");
  Program program("\"" + place + "\"");
  const HWND top = program.MainWindow();
  REQUIRE(top);
  Click(ReadyControl(top, IDC_cmdNext, 60000));
  const HWND list = ReadyControl(top, IDC_SpyListView);
  REQUIRE(list);
  std::string details;
  for (const ListRow& row : ListRows(list)) details += row.texts[2] + "\n";
  CHECK_MESSAGE(details.find(file + "\n") != std::string::npos, details);
  CHECK(program.Close());
  static_cast<void>(files.EraseFile(file));
  for (const std::string& folder : {home, place}) static_cast<void>(files.RemoveFolder(folder));
  CHECK(Errors() == "");
}

TEST_CASE("letters that are typed arrive, and a folder's name is kept in them") {
  PlantMachine();
  REQUIRE(files.CreateFolder(kPlace).ok());
  Program program("");
  {
    Tool tool(program, IDM_mnuStartupManager, "Startup Manager");
    const HWND filter = Control(tool.window, IDC_txtFilter);
    for (const wchar_t letter : std::wstring(L"\u0141\u4E88")) {
      PostMessageW(filter, WM_CHAR, letter, 0);
    }
    CHECK(WaitFor([&] { return Text(filter) == "\u0141\u4E88"; }, 5000));
    CHECK(ListRows(tool.list).empty());
    tool.Close();
  }
  Command(program.MainWindow(), IDM_mnuOptions);
  const HWND options = program.Window("Options");
  REQUIRE(options);
  Send(ReadyControl(options, IDC_OptionsTabs), TCM_SETCURFOCUS, 3, 0);
  SetText(Control(options, IDC_txtLogfiles), kPlace);
  Click(ReadyControl(options, IDC_CmdProceed));
  CHECK(WaitFor([&] { return !IsWindow(options); }));
  CHECK(Setting("Path", "LogPath") == kPlace);
  CHECK(program.Close());
  static_cast<void>(files.RemoveFolder(kPlace));
  CHECK(Errors() == "");
}

TEST_SUITE_END();

}  // namespace scourwell::ui
