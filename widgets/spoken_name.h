// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <string>

namespace scourwell {

// What a screen reader calls a control that shows no words of its own, such as a list. The control
// must not show its window text. Systems that know of no such names ignore it.
void SetSpokenName(HWND control, const std::string& name);
// Before the control goes.
void ClearSpokenName(HWND control);

}  // namespace scourwell
