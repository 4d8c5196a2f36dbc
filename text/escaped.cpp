// SPDX-License-Identifier: MIT
#include "text/escaped.h"

#include <algorithm>

#include "text/text.h"
#include "text/unicode.h"

namespace scourwell {
namespace {

constexpr std::string_view kBegin = "<U+";
constexpr std::size_t kMostDigits = 6;

void AppendEscaped(char32_t code, std::string* text) {
  text->append(kBegin).append(Hex(code, 4)).append(">");
}

// The number that an escaped form at the beginning of a text stands for, and the form's size; a
// size of 0 where there is none.
std::size_t ReadEscaped(std::string_view text, char32_t* code) {
  if (!text.starts_with(kBegin)) return 0;
  const std::size_t end = text.find('>');
  if (end == text.npos || end - kBegin.size() > kMostDigits || end - kBegin.size() < 4) return 0;
  *code = 0;
  for (const char c : text.substr(kBegin.size(), end - kBegin.size())) {
    const std::size_t digit = std::string_view("0123456789ABCDEF").find(c);
    if (digit == std::string_view::npos) return 0;
    *code = *code << 4 | static_cast<char32_t>(digit);
  }
  return *code < kStrayByte + 0x100 ? end + 1 : 0;
}

struct Range {
  char32_t first;
  char32_t last;
};
constexpr Range kNotShown[] = {
    {0x00, 0x1F},         // control characters
    {0x7F, 0xA0},         // more of them, and the blank that does not break
    {0xAD, 0xAD},         // a hyphen that is not seen
    {0x034F, 0x034F},     // joins
    {0x061C, 0x061C},     // marks of direction
    {0x115F, 0x1160},     // fillers
    {0x17B4, 0x17B5},     // vowels that are not seen
    {0x180B, 0x180F},     // selectors
    {0x2000, 0x200F},     // blanks of other widths, marks of direction
    {0x2028, 0x202F},     // ends of lines, marks of direction, a narrow blank
    {0x205F, 0x206F},     // operators that are not seen, marks of direction
    {0x2800, 0x2800},     // a pattern without dots
    {0x3164, 0x3164},     // a filler
    {0xD800, 0xDFFF},     // halves of pairs
    {0xE000, 0xF8FF},     // whatever anybody wants them to be
    {0xFE00, 0xFE0F},     // selectors
    {0xFEFF, 0xFEFF},     // a blank without width
    {0xFFA0, 0xFFA0},     // a filler
    {0xFFF0, 0xFFFF},     // no characters
    {0xE0000, 0x10FFFF},  // tags, selectors, and whatever anybody wants
};

bool IsBlank(char32_t code) {
  return code == 0xA0 || (code >= 0x2000 && code <= 0x200A) || code == 0x202F || code == 0x3000;
}

// Between letters from here on a line may end anywhere.
constexpr char32_t kFirstIdeograph = 0x2E80;
constexpr std::size_t kLongestWord = 40;  // as much as a box shows on a screen of 640 pixels

bool IsShown(char32_t code) {
  if (code >= 0x20 && code < 0x7F) return true;
  if (code >= kStrayByte) return false;
  return std::ranges::none_of(
      kNotShown, [&](const Range& range) { return code >= range.first && code <= range.last; });
}

}  // namespace

std::string Escaped(std::string_view text, const std::function<bool(char32_t)>& plain) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const bool looks_escaped = text.substr(at).starts_with(kBegin);
    const char32_t code = NextCode(text, &at);
    if (looks_escaped || !plain(code)) {
      AppendEscaped(code, &result);
    } else {
      AppendCode(code, &result);
    }
  }
  return result;
}

std::string Unescaped(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::size_t begin = std::min(text.find(kBegin), text.size());
    result.append(text.substr(0, begin));
    text.remove_prefix(begin);
    if (text.empty()) break;
    char32_t code = 0;
    const std::size_t size = ReadEscaped(text, &code);
    if (size == 0) {
      result += text.front();
      text.remove_prefix(1);
    } else {
      AppendCode(code, &result);
      text.remove_prefix(size);
    }
  }
  return result;
}

std::string ForShowing(std::string_view text) { return Escaped(text, IsShown); }

std::string LinesForShowing(std::string_view text) {
  return Escaped(text, [](char32_t code) {
    return code == '\r' || code == '\n' || code == '\t' || IsBlank(code) || IsShown(code);
  });
}

std::string MessageForShowing(std::string_view text) {
  const std::string lines = LinesForShowing(text);
  std::string result;
  std::size_t letters = 0;    // of the word so far
  std::size_t separator = 0;  // where in the result a path can be broken; 0: nowhere
  std::size_t behind = 0;     // letters behind it
  for (std::size_t at = 0; at < lines.size();) {
    const char32_t code = NextCode(lines, &at);
    const bool ends_word = code <= 0x20 || code >= kFirstIdeograph || IsBlank(code);
    if (!ends_word && letters == kLongestWord) {
      result.insert(separator != 0 ? separator : result.size(), "\r\n");
      letters = separator != 0 ? behind : 0;
      separator = 0;
    }
    AppendCode(code, &result);
    letters = ends_word ? 0 : letters + 1;
    ++behind;
    if (ends_word) separator = 0;
    if (code == '\\' || code == '/') {
      separator = result.size();
      behind = 0;
    }
  }
  return result;
}

}  // namespace scourwell
