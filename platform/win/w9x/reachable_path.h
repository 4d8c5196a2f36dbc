// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace scourwell {

// The longest path that the ANSI calls take, in bytes.
inline constexpr std::size_t kLongestPath9x = 259;

// False for a name that these systems read as another one: they cut off dots and blanks at the end
// and find a device in every folder.
bool ReadsAsItStands(std::string_view name);

// The form in which Windows 95, 98 and Me reach a path: in the system's code page, its folders by
// their 8.3 names where it is too long. None where the code page lacks a letter, or where the
// system would read another path: parts of dots, dots and blanks at the end of a part, devices.
std::optional<std::string> ReachablePath(std::string_view path);

}  // namespace scourwell
