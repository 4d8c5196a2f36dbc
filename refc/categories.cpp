// SPDX-License-Identifier: MIT
#include "refc/categories.h"

#include <map>
#include <set>

#include "refc/built_in.h"

namespace scourwell::refc {
namespace {

using Names = std::set<std::string_view, NoCaseLess>;

const std::deque<Row>& RowsOf(const DefinitionSet& set, Kind kind) {
  return set.rows[*SequenceFor(kind, Family::Categories)];
}

// The spies of a set; *without gets those that belong to no category, each with one of its rows.
Names SpiesOf(const DefinitionSet& set, const SpyCategories& categories,
              std::map<std::string_view, Place, NoCaseLess>* without) {
  Names spies;
  const std::span<const Listed> lists = Catalogue();
  for (std::size_t sequence = 0; sequence < lists.size(); ++sequence) {
    if (!IsDefinition(lists[sequence].kind) || lists[sequence].kind == Kind::Withdrawn) continue;
    for (const Row& row : set.rows[sequence]) {
      const std::string_view spy = set.View(row, 0);
      spies.insert(spy);
      if (CategoryOf(categories, lists[sequence], spy).empty())
        without->try_emplace(spy, row.place);
    }
  }
  return spies;
}

// True for a line about at least one of the spies, or a compiled-in one.
bool IsUsed(std::string_view subject, const Names& spies) {
  if (EqualsNoCase(subject, SpyCategories::kAnyCookie)) return true;
  if (!subject.ends_with('*')) {
    return spies.contains(subject) || BuiltInRows::Get().Names(subject);
  }
  const std::string_view beginning = subject.substr(0, subject.size() - 1);
  const auto spy = spies.lower_bound(beginning);
  return spy != spies.end() && StartsWithNoCase(*spy, beginning);
}

// Lines that say something of what another line said.
void FindRepeated(const DefinitionSet& set, Kind kind, Findings* findings) {
  Names said;
  for (const Row& row : RowsOf(set, kind)) {
    if (said.insert(set.View(row, 1)).second) continue;
    findings->Add(row.place, "duplicate", Quoted(set.View(row, 1)) + " was said before");
  }
}

}  // namespace

SpyCategories CategoriesOf(const DefinitionSet& set) {
  SpyCategories categories;
  for (const Row& row : RowsOf(set, Kind::CategoryText)) {
    categories.AddCategory(set.View(row, 1), set.View(row, 2));
  }
  for (const Row& row : RowsOf(set, Kind::Category)) {
    categories.AddSubject(set.View(row, 1), set.View(row, 2));
  }
  return categories;
}

std::string_view CategoryOf(const SpyCategories& categories, const Listed& listed,
                            std::string_view spy) {
  return categories.Of(spy, listed.kind == Kind::Cookie);
}

void JudgeCategories(const DefinitionSet& set, Findings* findings) {
  const std::deque<Row>& lines = RowsOf(set, Kind::Category);
  if (lines.empty()) return;
  const SpyCategories categories = CategoriesOf(set);
  std::map<std::string_view, Place, NoCaseLess> without;
  const Names spies = SpiesOf(set, categories, &without);
  for (const auto& [spy, place] : without) {
    findings->Add(place, "category", Quoted(spy) + " belongs to no category");
  }
  FindRepeated(set, Kind::CategoryText, findings);
  FindRepeated(set, Kind::Category, findings);
  for (const Row& row : lines) {
    const std::string_view subject = set.View(row, 1);
    if (categories.TextOf(set.View(row, 2)).empty()) {
      findings->Add(row.place, "category", "no category is called " + Quoted(set.View(row, 2)));
    } else if (set.from_source && !IsUsed(subject, spies)) {
      // Names of installed programs stand in a reference file without their spies.
      findings->Add(row.place, "category", "no row is about " + Quoted(subject));
    }
  }
}

}  // namespace scourwell::refc
