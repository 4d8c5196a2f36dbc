#include "definitions/spy_categories.h"

#include "definitions/list_loader.h"

namespace scourwell {
namespace {

// Hands out the pairs of a sequence, to its first gap.
template <typename Visit>
void ForEachPair(ReferenceFile& reference, const char* first_key, const char* second_key,
                 const Visit& visit) {
  for (int n = 0; n < kMostEntries; ++n) {
    const std::string number = std::to_string(n);
    const std::string first =
        reference.updateListfromINI(SpyCategories::kSection, number + first_key);
    const std::string second =
        reference.updateListfromINI(SpyCategories::kSection, number + second_key);
    if (first.empty() || second.empty()) return;
    visit(first, second);
  }
}

}  // namespace

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
  ForEachPair(reference, kCategoryKey, kTextKey,
              [&](const auto& category, const auto& text) { AddCategory(category, text); });
  ForEachPair(reference, kSubjectKey, kIsKey,
              [&](const auto& subject, const auto& category) { AddSubject(subject, category); });
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
