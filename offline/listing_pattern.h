// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace scourwell {

// The pattern of a listing: "*.*" is everything, "*." what has no extension, and dots before stars
// at the end may be missing in a name.
class ListingPattern {
 public:
  explicit ListingPattern(std::string_view pattern);

  bool HasWildcards() const { return wild_; }
  bool MatchesAll() const { return all_; }
  bool Matches(std::string_view name) const;

 private:
  using Positions = std::vector<bool>;
  void PassStars(Positions* reached) const;

  std::string plain_;
  std::u16string folded_;  // without dots and blanks at its end
  bool no_extension_ = false;
  bool wild_ = false;
  bool all_ = false;
};

}  // namespace scourwell
