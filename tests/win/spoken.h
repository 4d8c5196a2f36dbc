// SPDX-License-Identifier: MIT
#pragma once

// What the system tells a screen reader of a window.

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace scourwell::ui {

// False where the system has no such interface.
bool CanSpeak();

struct Spoken {
  long role = 0;  // ROLE_SYSTEM_...
  std::string name;
};
// Of the window's inside; nothing where it tells of none.
std::optional<Spoken> SpokenOf(HWND window);
// What each of its items is called, where the system knows them.
std::vector<std::string> SpokenItems(HWND window);

}  // namespace scourwell::ui
