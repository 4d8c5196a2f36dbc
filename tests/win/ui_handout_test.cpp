// SPDX-License-Identifier: MIT

// What a new user meets, a copy on a stick, and definitions that the user brings.
#include <shlobj.h>

#include "platform/win/native_text.h"
#include "tests/win/ui_tool.h"

namespace scourwell::ui {
namespace {

constexpr char kBrought[] = "C:\\brought.ref";
constexpr char kPortable[] = "C:\\Scourwell\\portable.ini";

std::string Release(const std::string& number) {
  return PlantedDefinitions()
      .Value("SETTINGS", "UPDATE-FILE-NUMBER", number)
      .Value("NTOT", "SAFITNUM", "1")
      .Value("NTOT", "SAFOTNUM", "1")
      .Text();
}

// As Explorer does it.
void Drop(HWND top, const std::string& path) {
  const std::wstring name = Wide(path);
  const HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + (name.size() + 2) * sizeof(wchar_t));
  auto* files = static_cast<DROPFILES*>(GlobalLock(memory));
  files->pFiles = sizeof(DROPFILES);
  files->fWide = TRUE;
  std::copy(name.begin(), name.end(), reinterpret_cast<wchar_t*>(files + 1));
  GlobalUnlock(memory);
  PostMessageW(top, WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
}

}  // namespace

TEST_SUITE_BEGIN("handout");

TEST_CASE("dropped definitions are used after a question, and the former ones come back") {
  PlantMachine();
  PlantContent(kReference, Release("1-2"));
  PlantContent(kBrought, "this is a letter");
  Program program("");
  const HWND top = program.MainWindow();
  REQUIRE(ReadyControl(top, IDC_imgSearch));
  CHECK(Text(Control(top, IDC_lblDefinitions)) == "1-2");
  Drop(top, kBrought);
  Answer(program.WindowOfClass("#32770"), IDOK);
  CHECK(Content(kReference) == Release("1-2"));
  PlantContent(kBrought, Release("1-10"));
  Drop(top, kBrought);
  Answer(program.WindowOfClass("#32770"), IDNO);
  CHECK(Content(kReference) == Release("1-2"));
  Drop(top, kBrought);
  Answer(program.WindowOfClass("#32770"), IDYES);
  Answer(program.WindowOfClass("#32770"), IDOK);
  CHECK(WaitFor([&] { return Text(Control(top, IDC_lblDefinitions)) == "1-10"; }));
  Command(top, IDM_mnuFormerDefinitions);
  Answer(program.WindowOfClass("#32770"), IDYES);
  Answer(program.WindowOfClass("#32770"), IDOK);
  CHECK(WaitFor([&] { return Text(Control(top, IDC_lblDefinitions)) == "1-2"; }));
  CHECK(program.Close());
  Erase(kBrought);
  Erase("C:\\Scourwell\\Ini\\update.old");
}

TEST_CASE("a portable copy greets once, scans, and writes nothing into the registry") {
  PlantMachine();
  SetSetting("Tour", "Shown", "");
  SetSetting("Mark", "Checked", "of the registry");
  PlantContent(kPortable, "");
  {
    Program program("C:\\planted");
    REQUIRE(WaitFor(LogIsComplete, 60000));
    REQUIRE(program.Close());
  }
  CHECK(Content(kPortable).find("Shown=") == std::string::npos);
  for (const bool first : {true, false}) {
    Program program("");
    const HWND top = program.MainWindow();
    REQUIRE(ReadyControl(top, IDC_imgSearch));
    const HWND tour = program.WindowOfClass("frmTour", first ? 10000 : 3000);
    CHECK((tour != nullptr) == first);
    if (tour) Click(ReadyControl(tour, IDOK));
    CHECK(Text(Control(top, IDC_lblScans)) == "1");
    REQUIRE(program.Close());
  }
  CHECK(Content(kPortable).find("BackupPath=.") != std::string::npos);
  CHECK(Content(kPortable).find("C:") == std::string::npos);
  CHECK(Setting("Mark", "Checked") == "of the registry");
  CHECK(Setting("Statistics", "NUMBER OF SCANS") == "");
  Erase(kPortable);
}

TEST_SUITE_END();

}  // namespace scourwell::ui
