// SPDX-License-Identifier: MIT
#pragma once

// The rules that every window of the program keeps, whatever the language and the resolution.

#include <string>
#include <vector>

#include "tests/win/looks_controls.h"

namespace scourwell::ui {

// Each finds faults and returns one line for each, empty when there is none.
using Faults = std::vector<std::string>;

// Texts are wholly there, nothing overlaps, nothing lies outside its parent.
Faults PlacementFaults(const std::vector<ShownControl>& controls, const Measure& measure);
// On the NT family every window is a wide one: any other loses letters. On Windows 95, 98 and Me
// there are ANSI ones only.
Faults KindFaults(const std::vector<ShownControl>& controls, bool ansi);
// Tab reaches whatever is enabled, from left to right and from top to bottom.
Faults TabFaults(HWND top, const std::vector<ShownControl>& controls);
// `others`: texts whose access keys belong to the same window, such as those of its menu bar.
Faults AccessKeyFaults(const std::vector<ShownControl>& controls,
                       const std::vector<std::string>& others);
Faults DefaultButtonFaults(const std::vector<ShownControl>& controls, bool has_one);

}  // namespace scourwell::ui
