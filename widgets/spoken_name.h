// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <string>

namespace scourwell {

// What a screen reader calls a control that does not say what it is itself, such as a list. Systems
// that know of no such names ignore it.
void SetSpokenName(HWND control, const std::string& name);
// For windows of our own, which have no role; one of ROLE_SYSTEM_...
void SetSpokenRole(HWND control, LONG role);
// Name and role. Before the control goes.
void ClearSpokenName(HWND control);

}  // namespace scourwell
