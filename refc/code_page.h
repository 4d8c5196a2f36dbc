// SPDX-License-Identifier: MIT
#pragma once

// Windows code page 1252, the program's, and UTF-8, the sources'.

#include <optional>
#include <string>
#include <string_view>

namespace scourwell::refc {

// Converts in place: the result is never longer. No value when `text` is no UTF-8 or holds a
// character that the code page lacks; *bad is that character as it can be shown, and *text is
// spoilt then.
std::optional<std::string_view> ToCodePage(char* text, std::size_t size, std::string* bad);

// One byte of the code page, appended as UTF-8. False for the five codes that are no character.
bool AppendAsUtf8(unsigned char code, std::string* text);

}  // namespace scourwell::refc
