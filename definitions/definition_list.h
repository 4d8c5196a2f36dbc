// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <memory>
#include <string_view>
#include <vector>

#include "definitions/definition.h"

namespace scourwell {

// Keeps texts in few large blocks.
class TextPool {
 public:
  // The copy lives as long as the pool, wherever the pool is moved.
  std::string_view Keep(std::string_view text);

 private:
  std::vector<std::unique_ptr<char[]>> blocks_;
  std::size_t size_ = 0;  // of the last block
  std::size_t used_ = 0;
};

// Definitions of one type in insertion order; duplicates are kept. A hundred thousand of them cost
// little more than their texts: a row is its views (eight bytes each in the program), and
// neighbours that agree in a text, mostly the spy's name, share it.
template <class Definition>
class DefinitionList {
 public:
  std::size_t size() const { return rows_.size(); }
  bool empty() const { return rows_.empty(); }
  const Definition& operator[](std::size_t index) const { return rows_[index]; }
  auto begin() const { return rows_.begin(); }
  auto end() const { return rows_.end(); }

  // Copies the texts.
  void Add(Definition row) {
    for (const auto text : Definition::kTexts) {
      const bool same = !rows_.empty() && rows_.back().*text == row.*text;
      row.*text = same ? rows_.back().*text : texts_.Keep(row.*text);
    }
    rows_.push_back(row);
  }
  void Clear() { *this = {}; }

  // Takes out the rows that `unwanted(row)` says yes to; the others keep their order.
  template <class Unwanted>
  void Remove(Unwanted&& unwanted) {
    std::erase_if(rows_, unwanted);
    if (rows_.empty()) Clear();
  }

 private:
  TextPool texts_;
  std::vector<Definition> rows_;
};

// What a scan works with; a phase fills what it needs.
struct DefinitionLists {
  DefinitionList<SearchedName> searched;
  DefinitionList<FixedPlace> fixed;
  DefinitionList<KeyPart> key_parts;
  DefinitionList<NamedKey> keys;
  DefinitionList<NamedValue> values;
  DefinitionList<ProcessName> processes;
  DefinitionList<CookieFragment> cookies;
  DefinitionList<ProgramText> program_texts;
  DefinitionList<ContentSum> checksums;
};

}  // namespace scourwell
