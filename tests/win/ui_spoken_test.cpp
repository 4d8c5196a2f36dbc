// SPDX-License-Identifier: MIT

// The windows as a screen reader is told of them.
#include <oleacc.h>

#include "tests/win/spoken.h"
#include "tests/win/ui_machine.h"

namespace scourwell::ui {

TEST_SUITE_BEGIN("ui_spoken");

TEST_CASE("what does not say what it is has a name") {
  if (!CanSpeak()) {
    MESSAGE("skipped: this system has no oleacc.dll");
    return;
  }
  PlantMachine();
  Program program("");
  const HWND top = program.MainWindow();
  REQUIRE(top);
  const auto spoken = [&](int id) {
    const HWND control = ReadyControl(top, id);
    REQUIRE(control);
    return SpokenOf(control).value_or(Spoken{});
  };
  CHECK(spoken(IDC_TreeView1).name == "Scan Sections...");
  CHECK(spoken(IDC_MenuXP1).name == "Actions");
  Command(top, IDM_mnuStartScan);
  CHECK(spoken(IDC_ActivityBar).name == "Scanning in progress...");
  CheckResults(top);
  const Spoken list = spoken(IDC_SpyListView);
  CHECK(list.name == "Detected Spy ware Components");
  // Wine tells of a list as of any window.
  if (list.role == ROLE_SYSTEM_LIST) {
    const auto rows = SpokenItems(Control(top, IDC_SpyListView));
    REQUIRE(rows.size() == 3);
    CHECK(rows[2].find("Spy File") != std::string::npos);
  } else {
    MESSAGE("skipped: this system does not know the rows of a list");
  }
}

TEST_SUITE_END();

}  // namespace scourwell::ui
