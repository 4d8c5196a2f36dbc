// SPDX-License-Identifier: MIT
#include "refc/provenance.h"

#include <algorithm>
#include <array>
#include <initializer_list>

#include "text/text.h"

namespace scourwell::refc {
namespace {

constexpr std::string_view kNames[kCertainties] = {"page", "named", "known", "concluded", "unsaid"};

// The columns behind the third one, as the reader cut them.
std::array<std::string_view, 2> LastColumns(std::string_view line) {
  std::array<std::string_view, 2> last;
  for (std::size_t column = 0; column < 5 && !line.empty(); ++column) {
    const std::size_t end = column == 4 ? line.npos : line.find('\t');
    if (column >= 3) last[column - 3] = TrimBlanks(line.substr(0, end));
    if (end == line.npos) break;
    line.remove_prefix(std::min(line.find_first_not_of('\t', end), line.size()));
  }
  return last;
}

bool HoldsAny(std::string_view text, std::initializer_list<std::string_view> words) {
  return std::ranges::any_of(
      words, [&](std::string_view word) { return FindNoCase(text, word) != text.npos; });
}

}  // namespace

Provenance ProvenanceOf(const DefinitionSet& set, const Row& row) {
  if (!set.from_source) return {};
  const std::string_view line = set.LineFrom(row.cells[0], row.place);
  const auto [source, comment] = LastColumns(line);
  return {source, comment};
}

std::string_view CertaintyName(Certainty certainty) {
  return kNames[static_cast<std::size_t>(certainty)];
}

Certainty CertaintyOf(std::string_view source) {
  if (source.empty()) return Certainty::Unsaid;
  if (HoldsAny(source, {"inferred", "corrected"})) return Certainty::Concluded;
  if (StartsWithNoCase(source, "known") || HoldsAny(source, {" known:", " known"})) {
    return Certainty::Known;
  }
  return HasPage(source) ? Certainty::Page : Certainty::Named;
}

bool HasPage(std::string_view source) { return HoldsAny(source, {"http://", "https://"}); }

}  // namespace scourwell::refc
