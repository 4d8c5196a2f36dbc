// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

namespace scourwell {

// What a window sends back to a control of its own that asked to be drawn: WM_DRAWITEM's parameters
// as they came.
inline constexpr UINT kReflectedDraw = WM_USER + 0x1C00 + WM_DRAWITEM;

}  // namespace scourwell
