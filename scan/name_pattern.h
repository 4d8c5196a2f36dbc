// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace scourwell {

// How a signature of a searched row is looked for in a folder.
enum class PatternKind {
  Name,      // one exact name: an entry of the listing answers it
  Wildcard,  // "*" or "?" in the name
  Relative,  // holds "\": looked for below a subfolder
  Unusable,  // nothing that a directory listing could find, or not safe to ask for
};

// One spelling for what Windows takes as the same: no "\" at the front or doubled, no dots and
// blanks at the end of a name. Those behind wildcards stay.
std::string NormalizeSignature(std::string_view signature);

// What a normalized signature is.
PatternKind ClassifyPattern(std::string_view signature);

// True when a listing with `pattern` could yield `name` on some Windows. The systems differ in
// "?" and in dots before wildcards, so this says yes too often, never too seldom; the system's
// own listing decides. Both texts folded.
bool MayMatch(std::string_view pattern, std::string_view name);

// The longest run of characters that every name which MayMatch admits must hold; may be empty.
std::string_view RequiredLiteral(std::string_view pattern);

}  // namespace scourwell
