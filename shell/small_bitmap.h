// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace scourwell {

// True when the system may be trusted with drawing it: a small picture of any kind that a BMP file
// can hold, whose header makes sense and whose pixels are all there and stay within it.
bool IsSmallBitmap(std::string_view content);

}  // namespace scourwell
