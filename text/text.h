// SPDX-License-Identifier: MIT
#pragma once

// Text helpers. All texts are UTF-8.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace scourwell {

// Without case means: as the running system compares names (see Folding).
std::string Upper(std::string_view text);
void AppendUpper(std::string_view text, std::string* folded);
bool EqualsNoCase(std::string_view a, std::string_view b);
// Negative, zero or positive, as the folded texts compare character by character.
int CompareNoCase(std::string_view a, std::string_view b);
// Position of `part` in `text` from `start`, or npos. An empty part is found at `start`.
std::size_t FindNoCase(std::string_view text, std::string_view part, std::size_t start = 0);
// How many bytes of `text` are the prefix, or npos when it begins otherwise. Two spellings of a
// text may differ in length.
std::size_t PrefixNoCase(std::string_view text, std::string_view prefix);
bool StartsWithNoCase(std::string_view text, std::string_view prefix);
bool EndsWithNoCase(std::string_view text, std::string_view ending);

// Removes blanks (code 32 only) from both ends.
std::string_view TrimBlanks(std::string_view text);
// The characters before the first NUL; the whole text when there is none.
std::string_view TrimNull(std::string_view text);
// Every occurrence of `from`, compared with case.
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);

// The number at the start of a text: blanks are skipped, then a sign and digits are read. 0 when
// there is none; values outside 32 bits stop at the nearest limit.
std::int32_t LeadingNumber(std::string_view text);
// `value` in decimal, left-padded with "0" to `width`.
std::string Padded(unsigned value, unsigned width);
std::string Hex(std::uint32_t value, unsigned width);
// bytes / 1024 with up to fifteen significant digits and no trailing zeros.
std::string Kilobytes(std::uint64_t bytes);

// Hashing and equality without case; both take string_views for look-up without a copy.
struct NoCaseHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const;
};
// Of a text that is folded already.
struct FoldedHash {
  std::size_t operator()(std::string_view folded) const;
};
struct NoCaseEqual {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const { return EqualsNoCase(a, b); }
};
struct NoCaseLess {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const { return CompareNoCase(a, b) < 0; }
};

}  // namespace scourwell
