// SPDX-License-Identifier: MIT

// What a new user meets, a copy on a stick, and definitions that the user brings.
#include <shlobj.h>

#include <cstring>

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

// As Explorer does it. The system would bring the memory over; Wine does not, so it is made there.
void Drop(HWND top, const std::string& path) {
  const std::wstring name = Wide(path);
  std::string bytes(sizeof(DROPFILES) + (name.size() + 2) * sizeof(wchar_t), '\0');
  DROPFILES head = {};
  head.pFiles = sizeof head;
  head.fWide = TRUE;
  std::memcpy(bytes.data(), &head, sizeof head);
  std::memcpy(bytes.data() + sizeof head, name.data(), name.size() * sizeof(wchar_t));
  DWORD id = 0;
  GetWindowThreadProcessId(top, &id);
  const KernelHandle process(OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_WRITE, FALSE, id));
  void* const memory =
      VirtualAllocEx(process.get(), nullptr, bytes.size(), MEM_COMMIT, PAGE_READWRITE);
  REQUIRE(WriteProcessMemory(process.get(), memory, bytes.data(), bytes.size(), nullptr));
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
  const HWND refusal = program.WindowOfClass("#32770");
  CHECK(WaitFor(
      [&] { return Text(GetDlgItem(refusal, 0xFFFF)).find(kBrought) != std::string::npos; }));
  Answer(refusal, IDOK);
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
