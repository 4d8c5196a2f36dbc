// SPDX-License-Identifier: MIT

// Every window of the built program, in every language: whether its texts fit, its controls keep
// apart and the keyboard gets everywhere.
#include <algorithm>
#include <cstdlib>

#include "platform/win/files_win.h"
#include "tests/win/camera.h"
#include "tests/win/looks_rules.h"
#include "tests/win/looks_windows.h"
#include "text/ini_text.h"

namespace scourwell::ui {
namespace {

constexpr char kLanguages[] = "SCOURWELL_LANGUAGES";  // file names, blanks between; empty: all
constexpr char kPictures[] = "SCOURWELL_PICTURES";    // a folder: pictures instead of checks

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

std::vector<std::string> Languages() {
  std::vector<std::string> languages;
  const std::string wanted = " " + Environment(kLanguages) + " ";
  REQUIRE(FilesWin()
              .List(std::string(kProgramFolder) + "Lang\\*.ini",
                    [&](const DirEntry& entry) {
                      if (wanted == "  " || wanted.find(" " + entry.name + " ") != wanted.npos) {
                        languages.push_back(entry.name);
                      }
                      return true;
                    })
              .ok());
  std::sort(languages.begin(), languages.end());
  return languages;
}

// The captions of a pack, for texts that cannot be read from outside.
class Pack {
 public:
  explicit Pack(const std::string& file)
      : pack_(Content(std::string(kProgramFolder) + "Lang\\" + file)) {}
  std::vector<std::string> Texts(const std::vector<int>& numbers) const {
    std::vector<std::string> texts;
    for (const int number : numbers) {
      texts.emplace_back(pack_.Find("Adware Language Pack", std::to_string(number)).value_or(""));
    }
    return texts;
  }

 private:
  IniText pack_;
};

// Every window of the program but the main one takes Escape as its end.
bool Escape(HWND window) {
  PostMessageW(FocusOf(window), WM_KEYDOWN, VK_ESCAPE, 0x00010001);
  return WaitFor([&] { return !IsWindow(window); }, 5000);
}

// What a window on the way to another one left.
void CloseAll(Tour& tour) {
  if (IsWindowEnabled(tour.top)) return;
  for (const LooksWindow& row : LooksWindows()) {
    if (!row.opened) continue;
    if (const HWND window = tour.program.WindowOfClass(row.opened, 0)) Escape(window);
  }
}

// Or the system would show us a screen of 96 dots per inch.
void SeeTrueResolution() {
  using Function = BOOL(WINAPI*)();
  const HMODULE user = GetModuleHandleA("user32.dll");
  const auto aware = reinterpret_cast<Function>(
      reinterpret_cast<void*>(GetProcAddress(user, "SetProcessDPIAware")));
  if (aware) aware();
}

class Judge {
 public:
  Judge(const std::string& language, const LooksWindow& row, HWND window)
      : name_(language + ", " + row.name), row_(row), window_(window) {}

  void Run(const Pack& pack) {
    const std::vector<ShownControl> controls = ShownControls(window_);
    CHECK_MESSAGE(controls.size() > 1, name_);
    // The program looks after its default button whenever a message comes by.
    PostMessageW(FocusOf(window_), WM_NULL, 0, 0);
    Report(KindFaults(controls, RunsAs9x()), "");
    Report(AccessKeyFaults(controls, pack.Texts(row_.menu)), "");
    Report(Placement(), "");
    Faults buttons;
    WaitFor(
        [&] {
          buttons = DefaultButtonFaults(ShownControls(window_), row_.has_default);
          return buttons.empty();
        },
        5000);
    Report(buttons, "");
    CHECK_MESSAGE(WaitFor([&] { return KeysArrive(); }, 5000),
                  name_ << ": no control has the keys");
    if (GetWindowLongW(window_, GWL_STYLE) & WS_THICKFRAME) RunSizes();
  }

 private:
  // A control that is hidden or grey would swallow them, Escape too.
  bool KeysArrive() const {
    HWND focus = FocusOf(window_);
    return focus != window_ && IsWindowVisible(focus) && IsWindowEnabled(focus);
  }

  Faults Placement() const {
    const std::vector<ShownControl> controls = ShownControls(window_);
    Faults faults = PlacementFaults(controls, Measure(controls));
    const Faults tab = TabFaults(window_, controls);
    faults.insert(faults.end(), tab.begin(), tab.end());
    return faults;
  }

  void RunSizes() {
    RECT first = {};
    GetWindowRect(window_, &first);
    const int width = first.right - first.left;
    const int height = first.bottom - first.top;
    Resize(1, 1);
    Report(Placement(), ", smallest");
    Resize(width * 3 / 2, height * 3 / 2);
    Report(Placement(), ", large");
    Resize(width, height);
  }

  void Resize(int width, int height) const {
    SetWindowPos(window_, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  }

  void Report(const Faults& faults, const std::string& size) const {
    for (const std::string& fault : faults) {
      const std::string message = name_ + size + ": " + fault;
      FAIL_CHECK(message);
    }
  }

  std::string name_;
  const LooksWindow& row_;
  HWND window_;
};

void Visit(Tour& tour, const LooksWindow& row, const std::string& language, const Pack& pack,
           const Camera& camera) {
  const std::string name = row.name;
  CAPTURE(name);
  row.open(tour);
  const HWND window = row.opened ? tour.program.WindowOfClass(row.opened, 30000) : tour.top;
  REQUIRE(window);
  if (camera.ready()) {
    CHECK(camera.Take(window, row.name));
  } else {
    Judge(language, row, window).Run(pack);
  }
  if (row.opened) CHECK_MESSAGE(Escape(window), language << ", " << name << ": Escape");
  CloseAll(tour);
}

}  // namespace

TEST_CASE("every window looks right in every language") {
  SeeTrueResolution();
  const Camera camera(Environment(kPictures));
  const std::vector<std::string> languages = Languages();
  REQUIRE_FALSE(languages.empty());
  MESSAGE("dots per inch: " << Metrics().Scale(96));
  for (const std::string& language : languages) {
    CAPTURE(language);
    PlantForLooks(camera.ready());
    SetSetting("Language", "Name", language);
    const Pack pack(language);
    Program program("");
    Tour tour = {program, program.MainWindow()};
    REQUIRE(tour.top);
    for (const LooksWindow& row : LooksWindows()) Visit(tour, row, language, pack, camera);
    CHECK(program.Close());
  }
  if (!camera.ready()) CHECK(Errors() == "");
}

}  // namespace scourwell::ui
