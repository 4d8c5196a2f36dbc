// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace scourwell {

// Every text inside the program is UTF-8. The names of the NT family are any 16-bit units: one half
// of a surrogate pair without the other is kept as the three bytes that its number would have, so
// that each name goes there and back unchanged.

// What NextCode gives for a byte that begins no character: this plus the byte.
inline constexpr char32_t kStrayByte = 0x110000;

constexpr bool IsSurrogate(char32_t code) { return code >= 0xD800 && code <= 0xDFFF; }

// The character at *at, which moves behind it. *at must lie inside the text.
char32_t NextCode(std::string_view text, std::size_t* at);
// The way back; a stray byte is appended as it was.
void AppendCode(char32_t code, std::string* text);

std::u16string ToUtf16(std::string_view text);
std::string FromUtf16(std::u16string_view units);

// True when all bytes are ASCII: such a text is the same in every code page.
bool IsAscii(std::string_view text);
// True when the text holds no stray byte.
bool IsWellFormed(std::string_view text);
// The longest beginning of at most so many bytes that cuts no character in two.
std::string_view WholeCharacters(std::string_view text, std::size_t bytes);

}  // namespace scourwell
