// SPDX-License-Identifier: MIT
#include "offline/listing_pattern.h"

#include "text/text.h"
#include "text/unicode.h"

namespace scourwell {

ListingPattern::ListingPattern(std::string_view pattern)
    : plain_(pattern), all_(pattern == "*" || pattern == "*.*") {
  wild_ = plain_.find_first_of("*?") != plain_.npos;
  if (!wild_ || all_) return;
  folded_ = ToUtf16(Upper(pattern));
  const std::size_t size = folded_.find_last_not_of(u". ") + 1;
  no_extension_ = folded_.find(u'.', size) != folded_.npos;
  folded_.resize(size);
}

void ListingPattern::PassStars(Positions* reached) const {
  for (std::size_t i = 0; i < folded_.size(); ++i) {
    if ((*reached)[i] && folded_[i] == u'*') (*reached)[i + 1] = true;
  }
}

bool ListingPattern::Matches(std::string_view name) const {
  if (all_) return true;
  if (!wild_) return EqualsNoCase(plain_, name);
  if (no_extension_ && name.find('.') != name.npos) return false;
  // The positions of the pattern that the name so far can have reached.
  Positions reached(folded_.size() + 1);
  reached[0] = true;
  PassStars(&reached);
  for (const char16_t c : ToUtf16(Upper(name))) {
    Positions after(folded_.size() + 1);
    for (std::size_t i = 0; i < folded_.size(); ++i) {
      if (!reached[i]) continue;
      if (folded_[i] == u'*') after[i] = true;
      if (folded_[i] == u'?' || folded_[i] == c) after[i + 1] = true;
    }
    PassStars(&after);
    reached = std::move(after);
  }
  for (std::size_t i = 0; i <= folded_.size(); ++i) {
    if (reached[i] && folded_.find_first_not_of(u".*", i) == folded_.npos) return true;
  }
  return false;
}

}  // namespace scourwell
