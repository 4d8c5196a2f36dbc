// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace scourwell {

// Names on a disk of this machine are any bytes but "/" and NUL; names of a Windows machine are
// UTF-8 without some signs. A byte that no such name has (of no character, a "\" or a "*") goes as
// half of a surrogate pair, U+DC00 plus the byte, so that each name comes back exactly and none
// reads like another.
std::string FromDiskName(std::string_view bytes);
// No value for what FromDiskName gives for no name: nothing on a disk is called so.
std::optional<std::string> ToDiskName(std::string_view name);

}  // namespace scourwell
