// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "refc/definition_set.h"

namespace scourwell::refc {

// A row that stands in one set only, or in both under different spies.
struct Change {
  std::uint8_t sequence;
  const Row* before;  // null: added
  const Row* after;   // null: removed
};

// Changes stand in the order of the sequences, then of the values.
std::vector<Change> Diff(const DefinitionSet& before, const DefinitionSet& after);

// The three texts of changes, in the order of kReleaseValues from "updated" on: spies that both
// sets know and whose rows differ, spies that only `after` knows, spies that only `before` knows,
// each with the number of rows. Empty where there are none; cut to what the program reads.
std::array<std::string, 3> ChangeTexts(const DefinitionSet& before, const DefinitionSet& after,
                                       const std::vector<Change>& changes);

}  // namespace scourwell::refc
