// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace scourwell::test {

// One reader of bytes that others may have written. `run` takes any bytes and throws
// std::logic_error where a promise does not hold.
struct FuzzTarget {
  const char* name;
  std::vector<std::string> (*seeds)();  // good inputs, from which mutations begin
  void (*run)(std::string_view bytes);
};

std::span<const FuzzTarget> FileTargets();  // files that the program reads whole
std::span<const FuzzTarget> LineTargets();  // single texts: paths, lines, commands
std::span<const FuzzTarget> ScriptTargets();

void Demand(bool holds, const char* promise);

}  // namespace scourwell::test
