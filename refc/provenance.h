// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "refc/definition_set.h"

namespace scourwell::refc {

// What the line of a source says beside its definition; both are empty for rows of other texts.
struct Provenance {
  std::string_view source;
  std::string_view comment;
};
Provenance ProvenanceOf(const DefinitionSet& set, const Row& row);

// How sure a row is, by the words of its source.
enum class Certainty : std::uint8_t {
  Page,       // an address where it can be read
  Named,      // a list or description without an address
  Known,      // common knowledge of the time, wholly or in part
  Concluded,  // inferred or corrected, wholly or in part
  Unsaid,     // no source
};
inline constexpr std::size_t kCertainties = 5;
std::string_view CertaintyName(Certainty certainty);
Certainty CertaintyOf(std::string_view source);
// True for a source with an address, whatever was concluded from it.
bool HasPage(std::string_view source);

}  // namespace scourwell::refc
