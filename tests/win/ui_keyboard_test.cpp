// SPDX-License-Identifier: MIT

// A whole visit without the mouse: real key strokes go to whatever window is in front.
#include "tests/win/ui_tool.h"

namespace scourwell::ui {
namespace {

void Stroke(WORD key, bool down) {
  const auto scan = static_cast<BYTE>(MapVirtualKeyW(key, 0));
  keybd_event(static_cast<BYTE>(key), scan, down ? 0 : KEYEVENTF_KEYUP, 0);
}

void Press(WORD key) {
  Stroke(key, true);
  Stroke(key, false);
  Sleep(60);
}

void PressWith(WORD modifier, WORD key) {
  Stroke(modifier, true);
  Stroke(key, true);
  Stroke(key, false);
  Stroke(modifier, false);
  Sleep(60);
}

// Alt and the letter that the control shows underlined.
void PressKeyOf(HWND control) {
  const std::string text = Text(control);
  const std::size_t at = text.find('&');
  REQUIRE_MESSAGE(at + 1 < text.size(), text);
  PressWith(VK_MENU, static_cast<WORD>(static_cast<unsigned char>(toupper(text[at + 1]))));
}

bool InFront(HWND window) {
  return WaitFor([&] { return GetForegroundWindow() == window; }, 5000);
}

}  // namespace

TEST_SUITE_BEGIN("ui_keyboard");

TEST_CASE("a scan, a stop, a removal, a restore, another language and the end by keys alone") {
  PlantMachine();
  Program program("");
  const HWND top = program.MainWindow();
  REQUIRE(top);
  REQUIRE(ReadyControl(top, IDC_imgSearch));
  SetForegroundWindow(top);
  REQUIRE(InFront(top));

  Press(VK_RETURN);  // the start page's preset picture
  REQUIRE(ReadyControl(top, IDC_cmdAbort));
  Press(VK_ESCAPE);
  REQUIRE(ReadyControl(top, IDC_cmdNext));
  CHECK(Text(Control(top, IDC_lblScanStatus)) == "Scan stopped");
  Press(VK_ESCAPE);
  REQUIRE(ReadyControl(top, IDC_imgSearch));

  Press(VK_F5);
  REQUIRE(ReadyControl(top, IDC_cmdNext, 60000));
  Press(VK_RETURN);
  REQUIRE(ReadyControl(top, IDC_SpyListView));
  REQUIRE(ListRows(Control(top, IDC_SpyListView)).size() == 3);
  PressKeyOf(ReadyControl(top, IDC_cmdBackup));
  REQUIRE(InFront(program.Window("Backup File Name")));
  Press('K');
  Press('B');
  Press(VK_RETURN);
  const HWND created = program.Window("Information");
  REQUIRE(InFront(created));
  Press(VK_RETURN);
  REQUIRE(InFront(top));
  PressKeyOf(ReadyControl(top, IDC_cmdDelete));
  const HWND sure = program.Window("Confirmation");
  REQUIRE(InFront(sure));
  Press(VK_RETURN);
  REQUIRE(InFront(program.Window("Spy ware removal results")));
  CHECK(Content("C:\\planted\\deep\\spyone.dll").empty());
  Press(VK_RETURN);
  REQUIRE(InFront(top));

  PressWith(VK_MENU, 'T');
  Press('K');
  const HWND backups = program.Window("Backup Management");
  REQUIRE(InFront(backups));
  Press(VK_HOME);
  Press(VK_SPACE);
  PressKeyOf(ReadyControl(backups, IDC_cmdRestore));
  REQUIRE(InFront(program.Window("Contents of the Backup")));
  Press(VK_RETURN);
  REQUIRE(InFront(program.Window("Information")));
  CHECK(Content("C:\\planted\\deep\\spyone.dll").size() == 2048);
  Press(VK_RETURN);
  REQUIRE(InFront(backups));
  Press(VK_ESCAPE);
  REQUIRE(InFront(top));

  PressWith(VK_MENU, 'T');
  Press('O');
  const HWND options = program.Window("Options");
  REQUIRE(InFront(options));
  const HWND languages = ReadyControl(options, IDC_CmbLang);
  for (int i = 0; i < 30; ++i) {
    if (FocusOf(options) == languages) break;
    Press(VK_TAB);
  }
  Press('G');
  Press(VK_RETURN);
  REQUIRE(InFront(top));
  CHECK(WaitFor([&] { return StatusText(Control(top, IDC_StatusBar), 2) == "Sprache: German"; }));
  CHECK(Setting("Language", "Name") == "German.ini");

  PressWith(VK_MENU, VK_F4);
  CHECK(program.Ended(10000));
  CHECK(program.ExitCode() == 0);
  CHECK(Errors() == "");
}

TEST_SUITE_END();

}  // namespace scourwell::ui
