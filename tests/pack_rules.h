#pragma once

#include <span>

namespace scourwell::test {

// How many characters a caption may have where it stands. The first row that holds its number
// counts; other captions have room for twice the English.
struct PackBudget {
  int first, last;
  std::size_t most;
};
extern const std::span<const PackBudget> kPackBudgets;

// Captions that stand together in a menu or window, so that their access keys must differ. Those
// without "&" are given keys in this order, as AccessKeys does it.
struct PackGroup {
  const char* name;
  std::span<const int> captions;
};
extern const std::span<const PackGroup> kPackGroups;

// Buttons side by side, and the room for them in the smallest window, at 96 dots per inch.
struct PackRow {
  const char* name;
  std::span<const int> buttons;
  int width;
};
extern const std::span<const PackRow> kPackRows;

}  // namespace scourwell::test
