// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "definitions/definition_list.h"
#include "scan/literal_index.h"

namespace scourwell {

// The rows of a list whose signature may stand anywhere inside a text, frozen, so that one look
// at a text decides for all of them. Compared without case.
//
// For example, of the key parts
//     0 "\EvilBar"    1 "{0000000A-"    2 "bar"
// a LiteralIndex proposes 0 and 2 for the key "HKEY_CLASSES_ROOT\CLSID\EvilBar", since a run of
// four characters of each, or all three of the shortest, stands in it. Both are found in the key as
// a whole, and 0 answers: it comes first in the list, as if the parts had been tried one by one.
class ContainmentIndex {
 public:
  ContainmentIndex() = default;
  // `text` says which text of a definition is looked for.
  template <class Definition>
  ContainmentIndex(const DefinitionList<Definition>& list, std::string_view Definition::*text) {
    for (std::uint32_t row = 0; row < list.size(); ++row) Add(row, list[row].*text);
    Freeze();
  }

  // Rows in rising order, then Freeze. An empty text is never found.
  void Add(std::uint32_t row, std::string_view text);
  void Freeze();

  bool empty() const { return rows_.empty(); }
  // The first row whose text occurs in `text`.
  std::optional<std::uint32_t> FirstRowIn(std::string_view text) const;

 private:
  LiteralIndex literals_;
  std::vector<std::string> texts_;  // folded
  std::vector<std::uint32_t> rows_;
};

}  // namespace scourwell
