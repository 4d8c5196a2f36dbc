// SPDX-License-Identifier: MIT
#include "definitions/spy_categories.h"

#include "definitions/list_loader.h"

namespace scourwell {

void SpyCategories::AddCategory(std::string_view category, std::string_view text) {
  texts_.try_emplace(std::string(category), text);
}

void SpyCategories::AddSubject(std::string_view subject, std::string_view category) {
  Map& map = subject.ends_with('*') ? beginnings_ : spies_;
  if (subject.ends_with('*')) subject.remove_suffix(1);
  map.try_emplace(std::string(subject), category);
}

void SpyCategories::Load(ReferenceFile& reference) {
  *this = {};
  for (const Sequence& sequence : kSpyCategories.sequences) {
    for (int n = 0; n < sequence.most; ++n) {
      const auto entry = ReadEntry(reference, sequence, n);
      if (!entry) break;
      const auto& [unused, about, text] = *entry;
      if (sequence.kind == DefinitionKind::Category) {
        AddSubject(about, text);
      } else {
        AddCategory(about, text);
      }
    }
  }
}

std::string_view SpyCategories::Of(std::string_view spy, bool by_cookie) const {
  std::string_view category = Find(spies_, spy);
  if (category.empty() && by_cookie) category = Find(spies_, kAnyCookie);
  if (!category.empty()) return category;
  std::size_t longest = 0;
  for (const auto& [beginning, each] : beginnings_) {
    if (beginning.size() < longest || !StartsWithNoCase(spy, beginning)) continue;
    longest = beginning.size();
    category = each;
  }
  return category;
}

std::string_view SpyCategories::TextOf(std::string_view category) const {
  return Find(texts_, category);
}

std::string_view SpyCategories::Find(const Map& map, std::string_view name) {
  const auto found = map.find(name);
  return found == map.end() ? std::string_view() : found->second;
}

}  // namespace scourwell
