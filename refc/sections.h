// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <set>
#include <string>

#include "refc/definition_set.h"
#include "text/text.h"

namespace scourwell::refc {

// The sections and keys of one reference file, or of a source in that form, on their way into a
// set. What the program would not read is a finding: it ends a sequence silently at the first
// entry that lacks a key. First section, first key counts.
class SectionCollector {
 public:
  SectionCollector(DefinitionSet& set, Findings& findings) : set_(set), findings_(findings) {}

  void Header(std::string_view name, Place place);
  // `value`: empty for what cannot be read.
  void Key(std::string_view name, Span value, Place place);
  // Appends the rows to the set, each sequence up to its first gap, and compares the counts; with
  // `all_counts` none may be missing.
  void Finish(bool all_counts);

 private:
  struct Numbered {
    Span value;
    Place place;
    std::uint16_t number;
    std::uint8_t sequence;
    std::uint8_t part;
  };
  using Keys = std::deque<Numbered>;

  void ListKey(std::string_view name, Span value, Place place);
  void Keep(DefinitionSet::Single* single, Span value, Place place);
  Keys::iterator FinishSequence(Keys::iterator key);
  // The keys of one entry; false when they are no whole row.
  bool FinishEntry(Keys::iterator first, Keys::iterator end);
  void CheckCounts(const std::vector<std::size_t>& before, bool all_counts);

  DefinitionSet& set_;
  Findings& findings_;
  std::set<std::string, NoCaseLess> seen_;  // of the sections that the program reads
  std::string section_;                     // empty: one that it does not read
  Place last_;
  Keys keys_;
  std::vector<DefinitionSet::Single> counts_ =
      std::vector<DefinitionSet::Single>(Catalogue().size());
};

}  // namespace scourwell::refc
