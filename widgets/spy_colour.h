// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

namespace scourwell {

// Red that can be read on the background of lists, whatever colours the user has chosen.
inline COLORREF SpyColour() {
  const COLORREF back = GetSysColor(COLOR_WINDOW);
  const bool dark = GetRValue(back) + GetGValue(back) + GetBValue(back) < 3 * 128;
  return dark ? RGB(255, 128, 128) : RGB(192, 0, 0);
}

}  // namespace scourwell
