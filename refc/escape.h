// SPDX-License-Identifier: MIT
#pragma once

// How odd bytes stand in readable text: "{x1F}" is the byte 31 of code page 1252, "{raw05}" the
// byte 5 of a scrambled value, which no plain character gives.

#include <functional>
#include <string>
#include <string_view>

namespace scourwell::refc {

// Text of code page 1252 as UTF-8 of one line, such that Unescape gives it back. Blanks at its ends
// are escaped too, so that no editor takes them away.
std::string Escaped(std::string_view text);
// The same of a scrambled value, in pieces: odd bytes take many times their room.
void WriteDescrambled(std::string_view scrambled, const std::function<void(std::string_view)>& put);

// Resolves "{xHH}" in place, in text of code page 1252; returns the new size.
std::size_t Unescape(char* text, std::size_t size);
bool HoldsRawByte(std::string_view text);

}  // namespace scourwell::refc
