// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "text/captions.h"

namespace scourwell {

// Captions that are told with a number hold a form for each kind of number, "entry|entries". How
// many kinds there are, and which number is of which, the pack says by naming a rule.

// How many forms a rule has; 0: there is no such rule.
std::size_t FormsOfRule(std::string_view rule);
// The form of a caption for a number. One with fewer forms than the rule uses its last for the
// rest.
std::string FormFor(const Captions& captions, std::uint64_t count, Caption caption);
// "1 entry", "5 entries"
std::string CountedText(const Captions& captions, std::uint64_t count, Caption caption);

// A size as people read it, rounded up: "12 KB".
std::string SizeText(const Captions& captions, std::uint64_t bytes);

}  // namespace scourwell
