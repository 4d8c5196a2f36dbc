// SPDX-License-Identifier: MIT
#include "text/text.h"

#include <algorithm>
#include <cstdio>
#include <ctime>

#include "text/folding.h"

namespace scourwell {
namespace {

// Folds the character at *at, which moves behind it.
char32_t NextFolded(std::string_view text, std::size_t* at) {
  const auto byte = static_cast<unsigned char>(text[*at]);
  if (byte >= 0x80) return Folding::Of(NextCode(text, at));
  ++*at;
  return Folding::Of(byte);
}

// Nobody can prepare names that fall together in every run.
std::uint32_t HashStart() {
  static const auto start =
      2166136261u ^ static_cast<std::uint32_t>(std::time(nullptr)) * 2654435761u;
  return start;
}

std::uint32_t Hashed(std::uint32_t hash, char32_t code) {
  return (hash ^ static_cast<std::uint32_t>(code)) * 16777619u;
}

}  // namespace

std::string Upper(std::string_view text) {
  std::string result;
  AppendUpper(text, &result);
  return result;
}

void AppendUpper(std::string_view text, std::string* folded) {
  folded->reserve(folded->size() + text.size());
  for (std::size_t at = 0; at < text.size();) {
    const char32_t code = NextFolded(text, &at);
    if (code < 0x80) {
      folded->push_back(static_cast<char>(code));
    } else {
      AppendCode(code, folded);
    }
  }
}

std::size_t PrefixNoCase(std::string_view text, std::string_view prefix) {
  std::size_t in_text = 0;
  for (std::size_t at = 0; at < prefix.size();) {
    if (in_text == text.size() || NextFolded(prefix, &at) != NextFolded(text, &in_text)) {
      return std::string_view::npos;
    }
  }
  return in_text;
}

bool StartsWithNoCase(std::string_view text, std::string_view prefix) {
  return PrefixNoCase(text, prefix) != std::string_view::npos;
}

bool EqualsNoCase(std::string_view a, std::string_view b) { return PrefixNoCase(a, b) == a.size(); }

bool EndsWithNoCase(std::string_view text, std::string_view ending) {
  return Upper(text).ends_with(Upper(ending));
}

int CompareNoCase(std::string_view a, std::string_view b) {
  std::size_t in_a = 0;
  std::size_t in_b = 0;
  while (in_a < a.size() && in_b < b.size()) {
    const char32_t left = NextFolded(a, &in_a);
    const char32_t right = NextFolded(b, &in_b);
    if (left != right) return left < right ? -1 : 1;
  }
  return in_b < b.size() ? -1 : in_a < a.size() ? 1 : 0;
}

std::size_t FindNoCase(std::string_view text, std::string_view part, std::size_t start) {
  for (std::size_t at = start; at <= text.size();) {
    if (StartsWithNoCase(text.substr(at), part)) return at;
    if (at == text.size()) break;
    NextCode(text, &at);
  }
  return std::string_view::npos;
}

std::string_view TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string_view TrimNull(std::string_view text) { return text.substr(0, text.find('\0')); }

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  if (from.empty()) return std::string(text);
  for (std::size_t at; (at = text.find(from)) != std::string_view::npos;) {
    result.append(text.substr(0, at)).append(to);
    text.remove_prefix(at + from.size());
  }
  return result.append(text);
}

std::int32_t LeadingNumber(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && text[i] == ' ') ++i;
  const bool negative = i < text.size() && text[i] == '-';
  if (i < text.size() && (text[i] == '-' || text[i] == '+')) ++i;
  std::int64_t value = 0;
  for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
    value = std::min<std::int64_t>(value * 10 + (text[i] - '0'), std::int64_t{1} << 40);
  }
  if (negative) value = -value;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, INT32_MIN, INT32_MAX));
}

std::string Padded(unsigned value, unsigned width) {
  std::string digits = std::to_string(value);
  return digits.size() >= width ? digits : std::string(width - digits.size(), '0') + digits;
}

std::string Hex(std::uint32_t value, unsigned width) {
  char digits[16];
  std::snprintf(digits, sizeof digits, "%0*X", static_cast<int>(std::min(width, 8u)),
                static_cast<unsigned>(value));
  return digits;
}

std::string Kilobytes(std::uint64_t bytes) {
  char digits[40];
  std::snprintf(digits, sizeof digits, "%.15g", static_cast<double>(bytes) / 1024.0);
  return digits;
}

// FNV-1a from a start of this run's own: no file can be made so that all its names fall together.
std::size_t NoCaseHash::operator()(std::string_view text) const {
  std::uint32_t hash = HashStart();
  for (std::size_t at = 0; at < text.size();) hash = Hashed(hash, NextFolded(text, &at));
  return hash;
}

std::size_t FoldedHash::operator()(std::string_view folded) const {
  std::uint32_t hash = HashStart();
  for (const char c : folded) hash = Hashed(hash, static_cast<unsigned char>(c));
  return hash;
}

}  // namespace scourwell
