// SPDX-License-Identifier: MIT

// The log viewer's search.
#include "tests/win/ui_machine.h"
#include "text/text.h"

namespace scourwell::ui {
namespace {

using Places = std::vector<int>;

Places PlacesIn(const std::string& text, const std::string& wanted) {
  Places places;
  for (std::size_t at = 0; (at = FindNoCase(text, wanted, at)) != text.npos; ++at) {
    places.push_back(static_cast<int>(at));
  }
  return places;
}

}  // namespace

TEST_SUITE_BEGIN("ui_log");

TEST_CASE("the log viewer finds a text without case, from place to place and round") {
  const std::string wanted = "PLANTED\\Deep";
  PlantMachine();
  Program program("C:\\planted");
  const HWND top = program.MainWindow();
  REQUIRE(top);
  REQUIRE(WaitFor(LogIsComplete, 60000));
  Click(ReadyControl(top, IDC_cmdNext));
  Click(ReadyControl(top, IDC_cmdViewLog));
  const HWND viewer = program.WindowOfClass("frmLog");
  REQUIRE(viewer);
  const HWND box = Control(viewer, IDC_txtFile);
  const auto selection = [&] { return Send(box, EM_GETSEL, 0, 0); };
  SetText(Control(viewer, IDC_txtFind), wanted);
  Places found;
  do {
    const LRESULT before = selection();
    Click(ReadyControl(viewer, IDC_cmdFind));
    REQUIRE(WaitFor([&] { return selection() != before; }, 5000));
    found.push_back(LOWORD(selection()));
    CHECK(HIWORD(selection()) - LOWORD(selection()) == static_cast<int>(wanted.size()));
  } while (found.size() < 2 || (found.back() != found.front() && found.size() < 20));
  found.pop_back();
  // The boxes of old and new systems differ in what the end of a line counts.
  const Places places = PlacesIn(LogText(), wanted);
  const Places lines_count_one = PlacesIn(ReplaceAll(LogText(), "\r\n", "\n"), wanted);
  REQUIRE(places.size() > 2);
  CHECK((found == places || found == lines_count_one));

  SetText(Control(viewer, IDC_txtFind), "no such text");
  Click(ReadyControl(viewer, IDC_cmdFind));
  const HWND told = program.Window("Information");
  REQUIRE(told);
  CHECK(Text(GetDlgItem(told, 0xFFFF)).find("no such text") != std::string::npos);
  PostMessageW(told, WM_COMMAND, IDOK, 0);
  CHECK(WaitFor([&] { return !IsWindow(told); }));
  PostMessageW(viewer, WM_CLOSE, 0, 0);
  CHECK(WaitFor([&] { return !IsWindow(viewer); }));
  CHECK(program.Close());
  CHECK(Errors() == "");
}

TEST_CASE("the log is reached from the start page, that of an earlier run too") {
  PlantMachine();
  std::string text;
  for (const bool scans : {true, false}) {
    Program program(scans ? "C:\\planted" : "");
    const HWND top = program.MainWindow();
    REQUIRE(top);
    if (scans) {
      REQUIRE(WaitFor(LogIsComplete, 60000));
      Click(ReadyControl(top, IDC_cmdCancel));
      text = LogText();
    }
    REQUIRE(ReadyControl(top, IDC_imgSearch));
    Command(top, IDM_mnuViewLog);
    const HWND viewer = program.WindowOfClass("frmLog");
    REQUIRE(viewer);
    CHECK(Text(Control(viewer, IDC_txtFile)).find("C:\\planted\\") != std::string::npos);
    // Only this run knows what its scan has found.
    CHECK((IsWindowEnabled(Control(viewer, IDC_cmdReport)) != FALSE) == scans);
    PostMessageW(viewer, WM_CLOSE, 0, 0);
    CHECK(WaitFor([&] { return !IsWindow(viewer); }));
    CHECK(program.Close());
  }
  CHECK(LogText() == text);
}

TEST_SUITE_END();

}  // namespace scourwell::ui
