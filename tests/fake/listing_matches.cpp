// SPDX-License-Identifier: MIT
#include "tests/fake/fake_machine.h"
#include "text/unicode.h"

namespace scourwell::test {

// Keeps the set of pattern positions that the name so far can have reached.
bool ListingMatches(std::string_view pattern, std::string_view name) {
  if (pattern.find_first_of("*?") == pattern.npos) return EqualsNoCase(pattern, name);
  const std::u16string folded = ToUtf16(Upper(pattern));
  const std::u16string_view bare =
      std::u16string_view(folded).substr(0, folded.find_last_not_of(u". ") + 1);
  // "*." asks for names without an extension.
  if (folded.find('.', bare.size()) != folded.npos && name.find('.') != name.npos) {
    return false;
  }
  std::vector<bool> reached(bare.size() + 1);
  const auto step_over_stars = [&](std::vector<bool>& set) {
    for (std::size_t i = 0; i < bare.size(); ++i) {
      if (set[i] && bare[i] == '*') set[i + 1] = true;
    }
  };
  reached[0] = true;
  step_over_stars(reached);
  for (const char16_t c : ToUtf16(Upper(name))) {
    std::vector<bool> next(bare.size() + 1);
    for (std::size_t i = 0; i < bare.size(); ++i) {
      if (!reached[i]) continue;
      if (bare[i] == '*') next[i] = true;
      if (bare[i] == '?' || bare[i] == c) next[i + 1] = true;
    }
    step_over_stars(next);
    reached = std::move(next);
  }
  // Dots before closing stars may be missing from the name: "*.*" finds everything.
  for (std::size_t i = 0; i <= bare.size(); ++i) {
    if (reached[i] && bare.find_first_not_of(u".*", i) == bare.npos) return true;
  }
  return false;
}

}  // namespace scourwell::test
