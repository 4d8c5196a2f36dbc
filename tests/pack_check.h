// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace scourwell::test {

// What is wrong with a language pack, a line each: "German.ini: 17011: no access key". Empty when
// nothing is. Compares with the caption table; `file` is the name without a path.
std::string FaultsOfPack(const std::string& file, std::string_view content);

}  // namespace scourwell::test
