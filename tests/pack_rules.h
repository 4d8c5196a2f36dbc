// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

namespace scourwell::test {

// How many columns captions may take where they stand; others have room for twice the English. A
// Latin or Russian letter takes one column, a Japanese sign two.
struct PackBudget {
  std::size_t most;
  std::vector<int> captions;
};
extern const std::vector<PackBudget> kPackBudgets;

// Captions that are told with a number, with a form for each kind of number that the pack's rule
// has.
extern const std::vector<int> kPackCounted;

// Captions that stand together in a menu or window, so that their access keys must differ. Those
// without "&" are given keys in this order, as AccessKeys does it.
struct PackGroup {
  const char* name;
  std::vector<int> captions;
};
extern const std::vector<PackGroup> kPackGroups;

// Buttons side by side, and the room for them in the smallest window, at 96 dots per inch.
struct PackRow {
  const char* name;
  std::vector<int> buttons;
  int width;
};
extern const std::vector<PackRow> kPackRows;

}  // namespace scourwell::test
