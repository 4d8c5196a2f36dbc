// SPDX-License-Identifier: MIT
#pragma once

// A tool of the program, driven through its window.

#include "platform/win/files_win.h"
#include "platform/win/registry_win.h"
#include "tests/win/ui_machine.h"

namespace scourwell::ui {

inline std::string Z(const std::string& text) { return text + '\0'; }

inline int RowOf(HWND list, const std::string& name) {
  const std::vector<ListRow> rows = ListRows(list);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i].texts[0] == name) return static_cast<int>(i);
  }
  return -1;
}

struct Tool {
  Tool(Program& program, int command, const char* title) {
    const HWND top = program.MainWindow();
    REQUIRE(top);
    REQUIRE(ReadyControl(top, IDC_imgSearch));
    Command(top, command);
    window = program.Window(title);
    REQUIRE(window);
    list = ReadyControl(window, IDC_lstTool);
    REQUIRE(list);
  }
  // Disables what is selected, or enables it.
  void Toggle(int row) {
    SelectRow(list, row);
    const std::string before = ListRows(list)[static_cast<std::size_t>(row)].texts[1];
    Click(ReadyControl(window, IDC_cmdDisable));
    CHECK(
        WaitFor([&] { return ListRows(list)[static_cast<std::size_t>(row)].texts[1] != before; }));
  }
  void Apply() {
    const HWND apply = ReadyControl(window, IDC_cmdApply);
    REQUIRE(apply);
    Click(apply);
    CHECK(WaitFor([&] { return !IsWindowEnabled(apply); }));
    CHECK(WaitFor([&] { return FocusOf(window) == list; }, 5000));  // not lost with the button
  }
  void Close() {
    Click(ReadyControl(window, IDC_cmdToolClose));
    CHECK(WaitFor([&] { return !IsWindow(window); }));
  }
  HWND window = nullptr;
  HWND list = nullptr;
};

inline void Answer(HWND box, int button) {
  REQUIRE(box);
  PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
  CHECK(WaitFor([&] { return !IsWindow(box); }));
}

// Types a path into a file dialog and confirms it.
inline void AnswerFileDialog(Program& program, const char* title, const std::string& path) {
  const HWND dialog = program.Window(title);
  REQUIRE(dialog);
  constexpr int kFileName[] = {0x47C, 0x480};  // of file dialogs, new and old
  HWND name = nullptr;
  REQUIRE(WaitFor([&] {
    for (const int id : kFileName) name = name ? name : Control(dialog, id);
    return name != nullptr;
  }));
  SetText(name, path);
  PostMessageW(dialog, WM_COMMAND, IDOK, 0);
  CHECK(WaitFor([&] { return !IsWindow(dialog); }));
}

}  // namespace scourwell::ui
