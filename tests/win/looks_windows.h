// SPDX-License-Identifier: MIT
#pragma once

// The windows of the program and the ways to them: read by the test of their looks and by the tour
// that takes pictures.

#include <span>
#include <string>
#include <vector>

#include "tests/win/ui_machine.h"

namespace scourwell::ui {

// One running program.
struct Tour {
  Program& program;
  HWND top;  // its main window
};

struct LooksWindow {
  const char* name;    // of the picture and in messages
  const char* opened;  // class of the window; null: a page of the main window
  // Leads there from the place where the row before ends: the start page, or the page before.
  void (*open)(Tour& tour);
  bool has_default;
  std::vector<int> menu;  // captions of the menu bar, whose access keys count, too
};

// In the order in which one session of the program comes by.
std::span<const LooksWindow> LooksWindows();

// The machine on which each of them has something to show. The demonstration's machine has
// definitions of its own, and what they find.
void PlantForLooks(bool demonstration);

}  // namespace scourwell::ui
