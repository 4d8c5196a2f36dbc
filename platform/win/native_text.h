// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace scourwell {

// The program's texts in the two forms that system calls take. These are the only places where a
// text changes its form on the way to a call or back.

// For the wide calls of the NT family. Every text goes there and back unchanged.
std::wstring Wide(std::string_view text);
std::string FromWide(std::wstring_view wide);

// For the ANSI calls of Windows 95, 98 and Me: letters that the system's code page lacks become the
// nearest that it has. For what is shown, never for what is opened.
std::string Narrow(std::string_view text);
// The same, or nothing where the code page lacks a letter.
std::optional<std::string> ExactNarrow(std::string_view text);
std::string FromNarrow(std::string_view narrow);

}  // namespace scourwell
