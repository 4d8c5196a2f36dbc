// SPDX-License-Identifier: MIT
#include "console/selection.h"

#include <algorithm>

#include "text/text.h"

namespace scourwell {
namespace {

constexpr std::string_view kSeparators = "\\/";

bool LiesAt(std::string_view place, std::string_view top) {
  while (top.size() > 1 && kSeparators.find(top.back()) != top.npos) top.remove_suffix(1);
  const std::size_t end = PrefixNoCase(place, top);
  if (end == place.npos) return false;
  return end == place.size() || kSeparators.find(place[end]) != kSeparators.npos;
}

}  // namespace

Selection::Selection(const std::vector<std::string>& only) {
  for (std::string_view words : only) {
    while (!words.empty()) {
      const std::size_t comma = std::min(words.find(','), words.size());
      if (words.substr(0, comma).find_first_of(kSeparators) != words.npos) {
        places_.emplace_back(words);
        break;
      }
      Add(TrimBlanks(words.substr(0, comma)));
      words.remove_prefix(std::min(comma + 1, words.size()));
    }
  }
}

void Selection::Add(std::string_view word) {
  if (word.empty()) return;
  if (const auto kind = FindKindName(word)) {
    kinds_.push_back(*kind);
  } else {
    spies_.emplace_back(word);
  }
}

bool Selection::Holds(const FindingRecord& record) const {
  const auto any = [](const auto& list, auto&& fits) {
    return list.empty() || std::ranges::any_of(list, fits);
  };
  const std::string place = PlaceOf(record);
  return any(kinds_, [&](FindingKind kind) { return kind == record.kind; }) &&
         any(spies_, [&](const std::string& spy) { return EqualsNoCase(spy, record.spy); }) &&
         any(places_, [&](const std::string& top) { return LiesAt(place, top); });
}

}  // namespace scourwell
