// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace scourwell {

// The code page that definitions and version texts of old tools are written in, whatever the
// running system's own is. The five bytes that it leaves free stand for themselves.
std::string From1252(std::string_view bytes);
// None when a letter is missing in it.
std::optional<std::string> To1252(std::string_view text);

}  // namespace scourwell
