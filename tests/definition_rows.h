// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "definitions/definition_list.h"

namespace scourwell::test {

// The texts of a list, one row a line.
template <class Definition>
std::string RowTexts(const DefinitionList<Definition>& list) {
  std::string lines;
  for (const Definition& row : list) {
    std::string line;
    for (const auto text : Definition::kTexts) {
      if (text != Definition::kTexts[0]) line += "|";
      line += row.*text;
    }
    lines += line + "\n";
  }
  return lines;
}

}  // namespace scourwell::test
