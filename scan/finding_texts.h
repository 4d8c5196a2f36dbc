// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "definitions/spy_categories.h"
#include "scan/finding.h"
#include "text/captions.h"

namespace scourwell {

// How findings are shown and written down. Nothing reads these texts back: what a step needs to
// know of a finding stands in its FoundObject.

// The word for a kind in files that outlive a language, as the ignore list: "Spy File".
std::string_view KindWord(FindingKind kind);
// No value for a word that no kind has.
std::optional<FindingKind> KindOfWord(std::string_view word);

// The same for the user, in the present language.
std::string KindText(const Captions& captions, FindingKind kind);
// Those of all kinds.
std::vector<std::string> KindTexts(const Captions& captions);
// The words of files that programs read: "high", "medium" or "low" ...
std::string_view CertaintyWord(Certainty certainty);
// ... and "built-in", "file" or "setting".
std::string_view SourceWord(DefinitionSource source);
// The level for the user, in the present language.
std::string CertaintyText(const Captions& captions, Certainty certainty);
// The picture in the list of results.
int KindIcon(FindingKind kind);

// Where it lies: a path, a key, a key with a value's name, a program; " (64-bit)" behind what only
// 64-bit programs see.
std::string PlaceText(const FoundObject& object);
// The path or the key alone and, where the definitions say it, what kind of program the spy is.
std::string TipText(const Finding& finding, const SpyCategories& categories);

// What stands behind a place in the registry's 64-bit view.
inline constexpr std::string_view kView64 = " (64-bit)";

}  // namespace scourwell
