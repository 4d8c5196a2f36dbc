// SPDX-License-Identifier: MIT

// A program that runs already, and what others ask of it.
#include "platform/win/native_text.h"
#include "platform/win/window_calls.h"
#include "tests/win/ui_tool.h"

namespace scourwell::ui {
namespace {

bool LogHolds(const std::string& text) { return LogText().find(text) != std::string::npos; }

// Asks as a second start does, from a window of this class. 0: not understood, 1: taken, 2: busy,
// 3: refused.
LRESULT Ask(HWND top, const std::string& bytes, ULONG_PTR form = 0x53435731,
            const char* name = "Scourwell.Start") {
  NewClass made;
  made.name = name;
  made.procedure = DefWindowProcW;
  made.instance = GetModuleHandleW(nullptr);
  Calls().Register(made);
  NewWindow hidden;
  hidden.window_class = name;
  hidden.style = WS_POPUP;
  hidden.instance = made.instance;
  const HWND window = Calls().Create(hidden);
  std::string copy = bytes;
  COPYDATASTRUCT data = {form, static_cast<DWORD>(copy.size()), copy.data()};
  const LRESULT answer =
      Send(top, WM_COPYDATA, reinterpret_cast<WPARAM>(window), reinterpret_cast<LPARAM>(&data));
  DestroyWindow(window);
  return answer;
}

}  // namespace

TEST_SUITE_BEGIN("second start");

TEST_CASE(
    "a second start ends at once and changes nothing, and with AutoSave off the log ends with the "
    "first") {
  PlantMachine();
  SetSetting("AutoSave", "AutoSave", "False");
  Program first("/STARTUP");
  REQUIRE(first.MainWindow());
  REQUIRE(WaitFor(LogIsComplete, 60000));
  SetSetting("Mark", "Checked", "n");
  Program second("");
  CHECK(second.Ended(5000));
  CHECK(second.ExitCode() == 0);
  CHECK(Setting("Mark", "Checked") == "n");
  CHECK(ScanLogs().size() == 1);
  CHECK_FALSE(first.Ended(0));
  REQUIRE(first.Close());
  CHECK(ScanLogs().empty());
  CHECK(Setting("AutoSave", "AutoSave") == "False");
}

TEST_CASE("folders of second starts get one scan, and nothing is removed unasked") {
  PlantMachine();
  SetSetting("AutoRemove", "AutoRemove", "True");
  for (const char* folder : {"C:\\one", "C:\\\u0142\u8868"}) {
    CreateDirectoryW(Wide(folder).c_str(), nullptr);
  }
  PlantFile("C:\\one\\spyone.dll", 1);
  const std::string other = RunsAs9x() ? "C:\\planted\\deep\\SpyHome" : "C:\\\u0142\u8868";
  PlantFile(other + "\\spyone.dll", 1);
  Program first("");
  const HWND top = first.MainWindow();
  REQUIRE(top);
  REQUIRE(ReadyControl(top, IDC_imgSearch));
  ShowWindow(top, SW_MINIMIZE);
  Program second("\"C:\\one\"");
  Program third("\"" + other + "\"");
  Program fourth("C:\\one\\");
  for (Program* each : {&second, &third, &fourth}) {
    CHECK(each->Ended(8000));
    CHECK(each->ExitCode() == 0);
  }
  CHECK(WaitFor([&] { return !IsIconic(top); }, 5000));
  REQUIRE(WaitFor(LogIsComplete));
  CHECK(LogHolds("Components found: 2\r\n"));
  CHECK(LogHolds("C:\\one\\spyone.dll"));
  CHECK(ReadyControl(top, IDC_cmdNext));
  CHECK(Content("C:\\one\\spyone.dll") == "x");
  CHECK(ScanLogs().size() == 1);
  CHECK(Errors() == "");
  CHECK(first.Close());
  Erase("C:\\one\\spyone.dll");
  Erase(other + "\\spyone.dll");
}

TEST_CASE("what asks for too much, or in the middle of something, gets a plain answer") {
  PlantMachine();
  Program first("");
  const HWND top = first.MainWindow();
  REQUIRE(top);
  REQUIRE(ReadyControl(top, IDC_imgSearch));
  const std::string good = std::string("PC:\\planted") + '\0';
  CHECK(Ask(top, good, 1) == 0);
  CHECK(Ask(top, good, 0x53435731, "Somebody") == 0);
  CHECK(Ask(top, "PC:\\planted") == 3);
  CHECK(Ask(top, std::string("PC:\\planted\\..") + '\0') == 3);
  CHECK(Ask(top, "P" + std::string(200000, 'x')) == 0);
  Command(top, IDM_mnuOptions);
  REQUIRE(first.WindowOfClass("frmOptions"));
  CHECK(Ask(top, good) == 2);
  Program second("C:\\planted");
  const HWND box = second.Window("Scourwell");
  REQUIRE(box);
  const std::string said = Text(GetDlgItem(box, 0xFFFF));
  CHECK(said.find("busy") != std::string::npos);
  CHECK(said.find("C:\\planted") != std::string::npos);
  Answer(box, IDOK);
  CHECK(second.Ended(5000));
  CHECK(ScanLogs().empty());
}

TEST_CASE("somebody else holds the name of the program: it says so") {
  PlantMachine();
  const KernelHandle held(CreateMutexW(nullptr, FALSE, L"Scourwell.SingleInstance"));
  Program program("");
  const HWND box = program.Window("Scourwell", 20000);
  REQUIRE(box);
  CHECK(Text(GetDlgItem(box, 0xFFFF)).find("cannot start") != std::string::npos);
  Answer(box, IDOK);
  CHECK(program.Ended(5000));
  CHECK(program.ExitCode() == 1);
  CHECK(Setting("Path", "Install").empty());
}

TEST_SUITE_END();

}  // namespace scourwell::ui
