// SPDX-License-Identifier: MIT
#pragma once

// Drives and reads Scourwell's windows from another process, as a user would. By wide calls: the
// system turns texts for windows of the other kind.

#include <windows.h>

#include <string>
#include <vector>

#include "platform/win/unique_handle.h"

namespace scourwell::ui {

// Sends a message; a window that does not answer within seconds counts as one that answers 0.
LRESULT Send(HWND window, UINT message, WPARAM w, LPARAM l);
// A text that a list box or combo box holds.
std::string ItemText(HWND list, UINT message, int row);

// One started program; ended by force if it still runs at the end.
class Program {
 public:
  // The command line behind the program's name.
  explicit Program(const std::string& arguments);
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program();

  // False when it still runs after that time.
  bool Ended(DWORD milliseconds);
  DWORD ExitCode() const;

  // Its main window, once that is there and visible; null after some seconds.
  HWND MainWindow();
  // A visible top-level window of the program with this title.
  HWND Window(const std::string& title, DWORD milliseconds = 5000);
  // The same by the name of its class, which is the same in every language.
  HWND WindowOfClass(const std::string& name, DWORD milliseconds = 5000);
  // Posts WM_CLOSE and waits for the end.
  bool Close();

 private:
  KernelHandle process_;
  DWORD id_ = 0;
};

// A visible control of that id, however deep; null when there is none.
HWND Control(HWND top, int id);
// The control that has the keyboard; the window itself when none has it.
HWND FocusOf(HWND window);
// Waits until the control is visible and enabled.
HWND ReadyControl(HWND top, int id, DWORD milliseconds = 60000);
std::string Text(HWND window);
std::string ClassName(HWND window);
void SetText(HWND window, const std::string& text);
void Click(HWND button);
void Command(HWND top, int id);

struct ListRow {
  bool checked;
  std::vector<std::string> texts;
};
std::vector<ListRow> ListRows(HWND list);

// Selects one row of a list alone.
void SelectRow(HWND list, int row);
// Selects rows, and no others.
void SelectRows(HWND list, int first, int last);
// By the mouse on the head of a column.
void ClickHead(HWND list, int column);
// Makes a column wider, by the mouse on its edge.
void DragHead(HWND list, int column, int by);

struct TreeRow {
  int depth;
  bool checked;
  std::string text;
};
std::vector<TreeRow> TreeRows(HWND tree);

std::string StatusText(HWND status, int part);

// A part of a control that shows a text of its own: a column head, a tab, a part of a status bar.
struct TextPart {
  int width;
  std::string text;
};
std::vector<TextPart> ColumnHeads(HWND list);
std::vector<TextPart> Tabs(HWND tab_control);
std::vector<TextPart> StatusParts(HWND status);

// Polls until the condition holds; false when it does not within the time.
template <class Condition>
bool WaitFor(Condition&& condition, DWORD milliseconds = 60000) {
  const DWORD start = GetTickCount();
  while (!condition()) {
    if (GetTickCount() - start > milliseconds) return false;
    Sleep(20);
  }
  return true;
}

}  // namespace scourwell::ui
