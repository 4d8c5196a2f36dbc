// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace scourwell {

// The escaped form of a character: "<U+" and its number in four to six hexadecimal digits and ">",
// as in "C:\<U+0141>\file". A text that itself holds "<U+" has "<U+003C>U+" instead, so that
// the form is read back exactly. No file name holds "<", so an escaped path looks like no other.

// Escapes every character that `plain` says no to.
std::string Escaped(std::string_view text, const std::function<bool(char32_t)>& plain);
std::string Unescaped(std::string_view text);

// The text as it may be shown: characters that cannot be seen, that turn the direction of writing
// or that are none at all are escaped, so that no name can pretend to be another.
std::string ForShowing(std::string_view text);
// The same of a text with lines, tabs and blanks of every width, which stay.
std::string LinesForShowing(std::string_view text);
// The same for a message box, which cuts off what is too long for a line and has no blank: such a
// word goes on in the next line, where it can after a separator of a path.
std::string MessageForShowing(std::string_view text);

}  // namespace scourwell
