// SPDX-License-Identifier: MIT
#pragma once

// A machine with one object of each kind to be removed, and the way through the windows of a
// removal.

#include "tests/win/ui_machine.h"

namespace scourwell::ui {

inline constexpr char kEvilKey[] = "Software\\EvilCorp";
inline constexpr char kRun[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
inline constexpr char kHome[] = "C:\\planted\\EvilHome";

// PlantMachine, and what the definitions name: a file, a folder, a key and a value, whatever
// earlier tests left or took of them.
void PlantEvil();
// Scans and comes to the list of results.
HWND ScanToResults(Program* program);
// The column of what was found, a row a line.
std::string Details(HWND list);
// Answers a message box or dialog, if it has that title, and waits until it is gone.
void Answer(Program* program, const std::string& title, int button);
// The same, after a look at which button Enter alone would press.
void AnswerAgainst(Program* program, const std::string& title, int default_button, int button);
// The objects of the outcome window, which is then closed.
std::string CloseOutcome(Program* program);

}  // namespace scourwell::ui
