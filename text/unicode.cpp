// SPDX-License-Identifier: MIT
#include "text/unicode.h"

#include <algorithm>

namespace scourwell {
namespace {

bool IsContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

// Bytes of the character that begins so, by its first byte; 0 for one that begins none.
std::size_t LengthOf(unsigned char first) {
  if (first < 0x80) return 1;
  if (first < 0xC2) return 0;
  if (first < 0xE0) return 2;
  if (first < 0xF0) return 3;
  return first < 0xF5 ? 4 : 0;
}

bool IsShortest(char32_t code, std::size_t length) {
  if (length == 3) return code >= 0x800;
  return length != 4 || (code >= 0x10000 && code <= 0x10FFFF);
}

}  // namespace

char32_t NextCode(std::string_view text, std::size_t* at) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char first = byte(*at);
  const std::size_t length = LengthOf(first);
  if (length == 1) {
    ++*at;
    return first;
  }
  if (length != 0 && *at + length <= text.size()) {
    char32_t code = first & (0x7Fu >> length);
    std::size_t i = 1;
    for (; i < length && IsContinuation(byte(*at + i)); ++i) {
      code = code << 6 | (byte(*at + i) & 0x3F);
    }
    if (i == length && IsShortest(code, length)) {
      *at += length;
      return code;
    }
  }
  ++*at;
  return kStrayByte + first;
}

void AppendCode(char32_t code, std::string* text) {
  const auto put = [&](char32_t byte) { text->push_back(static_cast<char>(byte)); };
  const auto put_rest = [&](unsigned shift) { put(0x80 | (code >> shift & 0x3F)); };
  if (code < 0x80) {
    put(code);
  } else if (code < 0x800) {
    put(0xC0 | code >> 6);
    put_rest(0);
  } else if (code < 0x10000) {
    put(0xE0 | code >> 12);
    put_rest(6);
    put_rest(0);
  } else if (code < kStrayByte) {
    put(0xF0 | code >> 18);
    put_rest(12);
    put_rest(6);
    put_rest(0);
  } else {
    put(code - kStrayByte);
  }
}

std::u16string ToUtf16(std::string_view text) {
  constexpr char16_t kNoCharacter = 0xFFFD;
  std::u16string units;
  units.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const char32_t code = NextCode(text, &at);
    if (code < 0x10000) {
      units += static_cast<char16_t>(code);
    } else if (code < kStrayByte) {
      units += static_cast<char16_t>(0xD7C0 + (code >> 10));
      units += static_cast<char16_t>(0xDC00 | (code & 0x3FF));
    } else {
      units += kNoCharacter;
    }
  }
  return units;
}

std::string FromUtf16(std::u16string_view units) {
  std::string text;
  text.reserve(units.size());
  for (std::size_t i = 0; i < units.size(); ++i) {
    char32_t code = units[i];
    if (code < 0x80) {
      text.push_back(static_cast<char>(code));
      continue;
    }
    const bool leads = (code & 0xFC00) == 0xD800;
    if (leads && i + 1 < units.size() && (units[i + 1] & 0xFC00) == 0xDC00) {
      code = 0x10000 + ((code & 0x3FF) << 10 | (units[++i] & 0x3FFu));
    }
    AppendCode(code, &text);
  }
  return text;
}

bool IsAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool IsWellFormed(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    if (NextCode(text, &at) >= kStrayByte) return false;
  }
  return true;
}

std::string_view WholeCharacters(std::string_view text, std::size_t bytes) {
  if (text.size() <= bytes) return text;
  constexpr std::size_t kLongest = 4;
  std::size_t cut = bytes;
  while (cut > 0 && bytes - cut < kLongest &&
         IsContinuation(static_cast<unsigned char>(text[cut]))) {
    --cut;
  }
  return text.substr(0, cut);
}

}  // namespace scourwell
