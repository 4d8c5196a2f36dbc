#include "platform/text.h"

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace scourwell {
namespace {

// Code page 1252: the letters from A-grave on fold like ASCII ones, and three lie elsewhere.
FoldTable Windows1252() {
  FoldTable table{};
  for (unsigned i = 0; i < 256; ++i) table[i] = static_cast<unsigned char>(i);
  for (unsigned i = 'a'; i <= 'z'; ++i) table[i] = static_cast<unsigned char>(i - 32);
  for (unsigned i = 0xE0; i <= 0xFE; ++i) {
    if (i != 0xF7) table[i] = static_cast<unsigned char>(i - 32);
  }
  table[0x9A] = 0x8A;
  table[0x9C] = 0x8C;
  table[0x9E] = 0x8E;
  table[0xFF] = 0x9F;
  return table;
}

}  // namespace

FoldTable fold_table = Windows1252();

void SetFoldTable(const FoldTable& table) { fold_table = table; }

std::string Upper(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = Fold(c);
  return result;
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (Fold(a[i]) != Fold(b[i])) return false;
  }
  return true;
}

int CompareNoCase(std::string_view a, std::string_view b) {
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    const int difference =
        static_cast<unsigned char>(Fold(a[i])) - static_cast<unsigned char>(Fold(b[i]));
    if (difference != 0) return difference;
  }
  return a.size() < b.size() ? -1 : a.size() > b.size() ? 1 : 0;
}

std::size_t FindNoCase(std::string_view text, std::string_view part, std::size_t start) {
  if (part.size() > text.size()) return std::string_view::npos;
  for (std::size_t at = start; at + part.size() <= text.size(); ++at) {
    if (EqualsNoCase(text.substr(at, part.size()), part)) return at;
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
  static const auto start =
      2166136261u ^ static_cast<std::uint32_t>(std::time(nullptr)) * 2654435761u;
  std::uint32_t hash = start;
  for (const char c : text) {
    hash = (hash ^ static_cast<unsigned char>(Fold(c))) * 16777619u;
  }
  return hash;
}

}  // namespace scourwell
