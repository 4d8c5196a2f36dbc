// SPDX-License-Identifier: MIT
#pragma once

// What lint asks of single texts.

#include <string>
#include <string_view>
#include <vector>

namespace scourwell::refc {

// Distinctive characters of a file name or pattern: the longest run of letters, digits and "_"
// without wildcards, extension and words that many programs have in their names.
std::size_t Distinctive(std::string_view name);
// The longest such run as it stands.
std::size_t LongestRun(std::string_view text);

// The parts between "\".
std::vector<std::string_view> Parts(std::string_view path);
// Folders in which programs of all makers lie.
bool IsSharedFolder(std::string_view part);

// "{8-4-4-4-12}" hexadecimal digits.
bool IsClassId(std::string_view text);

// What is wrong with the folder token of a fixed place; empty when nothing is. *rest is the path
// behind it, with its "\".
std::string TokenMistake(std::string_view path, std::string_view* rest);

// The part of a key's path below its root; empty when the root is unknown or nothing is below it.
std::string_view BelowRoot(std::string_view key);

}  // namespace scourwell::refc
