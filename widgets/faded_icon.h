// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

namespace scourwell {

// Draws an icon in pale greys on what is already there, as something that is not available.
void DrawFadedIcon(HDC dc, int x, int y, HICON icon, int size);

}  // namespace scourwell
