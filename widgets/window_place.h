// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "widgets/area.h"
#include "widgets/window_env.h"

namespace scourwell {

// Remembers where the user left a window, for each size of the screen by itself.
class WindowPlace {
 public:
  WindowPlace(const WindowEnv& env, const char* window) : env_(env), window_(window) {}

  // Within the part of the screen that the taskbar leaves, whatever was kept; none when nothing
  // was.
  std::optional<Area> Find(SIZE smallest) const;
  bool maximized() const;
  // Of a window that is about to go.
  void Keep(HWND window) const;

 private:
  const WindowEnv& env_;
  const char* window_;
};

// The widths of a list's columns, likewise. `list` names it among all lists.
std::vector<int> KeptWidths(const WindowEnv& env, const char* list);
void KeepWidths(const WindowEnv& env, const char* list, const std::vector<int>& widths);

}  // namespace scourwell
