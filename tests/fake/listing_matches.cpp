#include "tests/fake/fake_machine.h"

namespace scourwell::test {

// Keeps the set of pattern positions that the name so far can have reached.
bool ListingMatches(std::string_view pattern, std::string_view name) {
  const std::string_view bare = pattern.substr(0, pattern.find_last_not_of(". ") + 1);
  if (pattern.find_first_of("*?") == pattern.npos) return EqualsNoCase(bare, name);
  // "*." asks for names without an extension.
  if (pattern.substr(bare.size()).find('.') != pattern.npos && name.find('.') != name.npos) {
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
  for (const char c : name) {
    std::vector<bool> next(bare.size() + 1);
    for (std::size_t i = 0; i < bare.size(); ++i) {
      if (!reached[i]) continue;
      if (bare[i] == '*') next[i] = true;
      if (bare[i] == '?' || Fold(bare[i]) == Fold(c)) next[i + 1] = true;
    }
    step_over_stars(next);
    reached = std::move(next);
  }
  // Dots before closing stars may be missing from the name: "*.*" finds everything.
  for (std::size_t i = 0; i <= bare.size(); ++i) {
    if (reached[i] && bare.find_first_not_of(".*", i) == bare.npos) return true;
  }
  return false;
}

}  // namespace scourwell::test
