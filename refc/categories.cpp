#include "refc/categories.h"

#include <set>

namespace scourwell::refc {
namespace {

constexpr std::string_view kFamily = "family ";

using Names = std::set<std::string_view, NoCaseLess>;

// The spies of a set, each with one of its rows.
std::map<std::string_view, Place, NoCaseLess> SpiesWithout(const DefinitionSet& set,
                                                           const Categories& categories,
                                                           Names* all) {
  std::map<std::string_view, Place, NoCaseLess> without;
  const std::span<const Listed> lists = Catalogue();
  for (std::size_t sequence = 0; sequence < lists.size(); ++sequence) {
    for (const Row& row : set.rows[sequence]) {
      const std::string_view spy = set.View(row, 0);
      all->insert(spy);
      const Family family = FamilyOf(lists[sequence], spy);
      if (family != Family::Withdrawn && categories.Of(spy, family).empty()) {
        without.try_emplace(spy, row.place);
      }
    }
  }
  return without;
}

// True for a line about at least one of the spies.
bool IsUsed(std::string_view subject, const Names& spies) {
  if (StartsWithNoCase(subject, kFamily)) return true;
  if (!subject.ends_with('*')) return spies.contains(subject);
  const std::string_view beginning = subject.substr(0, subject.size() - 1);
  const auto spy = spies.lower_bound(beginning);
  return spy != spies.end() && StartsWithNoCase(*spy, beginning);
}

}  // namespace

Categories::Categories(const DefinitionSet& set) {
  for (const DefinitionSet::CategoryLine& line : set.categories) {
    std::string_view subject = set.View(line.subject, line.place);
    Map* map = &texts_;
    if (line.is && StartsWithNoCase(subject, kFamily)) {
      subject.remove_prefix(kFamily.size());
      map = &families_;
    } else if (line.is && subject.ends_with('*')) {
      subject.remove_suffix(1);
      map = &beginnings_;
    } else if (line.is) {
      map = &spies_;
    }
    map->try_emplace(subject, set.View(line.text, line.place));
  }
}

std::string_view Categories::Of(std::string_view spy, Family family) const {
  if (const auto named = spies_.find(spy); named != spies_.end()) return named->second;
  std::string_view longest;
  std::string_view category;
  for (const auto& [beginning, text] : beginnings_) {
    if (beginning.size() < longest.size() || !StartsWithNoCase(spy, beginning)) continue;
    longest = beginning;
    category = text;
  }
  if (!category.empty()) return category;
  const auto whole = families_.find(FamilyName(family));
  return whole == families_.end() ? std::string_view() : whole->second;
}

std::string_view Categories::Text(std::string_view category) const {
  const auto text = texts_.find(category);
  return text == texts_.end() ? std::string_view() : text->second;
}

void JudgeCategories(const DefinitionSet& set, Findings* findings) {
  if (set.categories.empty()) return;
  const Categories categories(set);
  Names spies;
  for (const auto& [spy, place] : SpiesWithout(set, categories, &spies)) {
    findings->Add(place, "category", Quoted(spy) + " belongs to no category");
  }
  Names said;
  for (const DefinitionSet::CategoryLine& line : set.categories) {
    const std::string_view subject = set.View(line.subject, line.place);
    const std::string_view text = set.View(line.text, line.place);
    if (!said.insert(subject).second) {
      findings->Add(line.place, "duplicate", Quoted(subject) + " was said before");
    } else if (line.is && categories.Text(text).empty()) {
      findings->Add(line.place, "category", "no category is called " + Quoted(text));
    } else if (line.is && !IsUsed(subject, spies)) {
      findings->Add(line.place, "category", "no row is about " + Quoted(subject));
    }
  }
}

}  // namespace scourwell::refc
