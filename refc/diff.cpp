// SPDX-License-Identifier: MIT
#include "refc/diff.h"

#include <algorithm>
#include <map>
#include <set>

#include "definitions/reference_file.h"
#include "text/text.h"

namespace scourwell::refc {
namespace {

using RowPointers = std::vector<const Row*>;

int CompareRows(const DefinitionSet& a_set, const Row& a, const DefinitionSet& b_set,
                const Row& b) {
  const int value = CompareNoCase(a_set.View(a, 1), b_set.View(b, 1));
  return value != 0 ? value : CompareNoCase(a_set.View(a, 2), b_set.View(b, 2));
}

RowPointers Sorted(const DefinitionSet& set, const std::deque<Row>& rows) {
  RowPointers sorted;
  sorted.reserve(rows.size());
  for (const Row& row : rows) sorted.push_back(&row);
  std::stable_sort(sorted.begin(), sorted.end(),
                   [&](const Row* a, const Row* b) { return CompareRows(set, *a, set, *b) < 0; });
  return sorted;
}

void DiffSequence(const DefinitionSet& before, const DefinitionSet& after, std::uint8_t sequence,
                  std::vector<Change>* changes) {
  const RowPointers old_rows = Sorted(before, before.rows[sequence]);
  const RowPointers new_rows = Sorted(after, after.rows[sequence]);
  auto a = old_rows.begin();
  auto b = new_rows.begin();
  while (a != old_rows.end() || b != new_rows.end()) {
    const int order = a == old_rows.end()   ? 1
                      : b == new_rows.end() ? -1
                                            : CompareRows(before, **a, after, **b);
    if (order < 0) {
      changes->push_back({sequence, *a++, nullptr});
    } else if (order > 0) {
      changes->push_back({sequence, nullptr, *b++});
    } else {
      // Lists of names have no spy in a reference file.
      if (Catalogue()[sequence].keys[0] && before.View(**a, 0) != after.View(**b, 0)) {
        changes->push_back({sequence, *a, *b});
      }
      ++a;
      ++b;
    }
  }
}

using Spies = std::map<std::string, std::size_t, NoCaseLess>;

void Count(Spies* spies, std::string_view spy) {
  if (!spy.empty()) ++(*spies)[std::string(spy)];
}

std::set<std::string, NoCaseLess> SpiesOf(const DefinitionSet& set) {
  std::set<std::string, NoCaseLess> spies;
  for (std::size_t sequence = 0; sequence < set.rows.size(); ++sequence) {
    if (!Catalogue()[sequence].keys[0]) continue;
    for (const Row& row : set.rows[sequence]) spies.emplace(set.View(row, 0));
  }
  return spies;
}

std::string TextOf(const Spies& spies) {
  constexpr std::size_t kRoom = kLongestValue - 20;  // for " and 123456 more"
  std::string text;
  std::size_t left = spies.size();
  for (const auto& [spy, rows] : spies) {
    const std::string piece = (text.empty() ? "" : ", ") + spy + " (" + std::to_string(rows) + ")";
    if (text.size() + piece.size() > kRoom) break;
    text += piece;
    --left;
  }
  if (left != 0) text += " and " + std::to_string(left) + " more";
  return text;
}

}  // namespace

std::vector<Change> Diff(const DefinitionSet& before, const DefinitionSet& after) {
  std::vector<Change> changes;
  for (std::size_t sequence = 0; sequence < before.rows.size(); ++sequence) {
    DiffSequence(before, after, static_cast<std::uint8_t>(sequence), &changes);
  }
  return changes;
}

std::array<std::string, 3> ChangeTexts(const DefinitionSet& before, const DefinitionSet& after,
                                       const std::vector<Change>& changes) {
  const auto old_spies = SpiesOf(before);
  const auto new_spies = SpiesOf(after);
  Spies updated, added, removed;
  for (const Change& change : changes) {
    if (!Catalogue()[change.sequence].keys[0]) continue;
    if (change.after) {
      const std::string_view spy = after.View(*change.after, 0);
      Count(old_spies.count(std::string(spy)) ? &updated : &added, spy);
    }
    if (change.before) {
      const std::string_view spy = before.View(*change.before, 0);
      if (!new_spies.count(std::string(spy))) {
        Count(&removed, spy);
      } else if (!change.after) {
        Count(&updated, spy);
      }
    }
  }
  return {TextOf(updated), TextOf(added), TextOf(removed)};
}

}  // namespace scourwell::refc
