// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace scourwell {

// The two lists of what goes at the next start, as texts. Whatever else stands in them stays as it
// is, byte for byte.

// Says whether an entry that deletes this path is to be taken out.
using TakeOut = std::function<bool(const std::string& path)>;

// The value of the NT family: pairs of a path and its target, which is empty for what is deleted,
// each text with its NUL, and one more at the end. Empty when nothing is left.
std::string WithoutMoves(std::string_view list, const TakeOut& take_out);

// "WinInit.ini": lines "NUL=path" and "DIRNUL=path" below "[Rename]".
std::string WithRenameEntry(std::string_view text, const std::string& entry);
std::string WithoutRenameEntries(std::string_view text, const TakeOut& take_out);

}  // namespace scourwell
