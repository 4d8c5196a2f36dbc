// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace scourwell {

// Numbers that the settings keep as a text, such as the place of a window: "12,-3,400". Anybody may
// write that text, so it counts only as a whole.

std::string PackNumbers(const std::vector<int>& numbers);
// Empty when the text is anything else than at most kMostKeptNumbers plain numbers.
inline constexpr std::size_t kMostKeptNumbers = 32;
std::vector<int> UnpackNumbers(std::string_view text);

}  // namespace scourwell
