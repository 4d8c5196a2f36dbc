// SPDX-License-Identifier: MIT
#include "refc/code_page.h"

#include <array>
#include <cstdint>

#include "text/text.h"

namespace scourwell::refc {
namespace {

// The characters of the codes 128 to 159; 0 where there is none.
constexpr std::array<std::uint16_t, 32> kUpper = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

std::optional<unsigned char> CodeOf(std::uint32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
    return static_cast<unsigned char>(character);
  }
  for (std::size_t i = 0; i < kUpper.size(); ++i) {
    if (kUpper[i] != 0 && kUpper[i] == character) return static_cast<unsigned char>(0x80 + i);
  }
  return std::nullopt;
}

// The character at the start of `text` and the bytes it takes; none when it is no UTF-8.
std::size_t Decode(std::string_view text, std::uint32_t* character) {
  const auto lead = static_cast<unsigned char>(text[0]);
  if (lead < 0x80) {
    *character = lead;
    return 1;
  }
  const std::size_t size = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < size) return 0;
  std::uint32_t code = lead & (0x7Fu >> size);
  for (std::size_t i = 1; i < size; ++i) {
    const auto next = static_cast<unsigned char>(text[i]);
    if ((next & 0xC0) != 0x80) return 0;
    code = code << 6 | (next & 0x3Fu);
  }
  constexpr std::uint32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  if (code < kLeast[size] || (code >= 0xD800 && code < 0xE000) || code > 0x10FFFF) return 0;
  *character = code;
  return size;
}

}  // namespace

std::optional<std::string_view> ToCodePage(char* text, std::size_t size, std::string* bad) {
  std::size_t written = 0;
  for (std::size_t at = 0; at < size;) {
    std::uint32_t character = 0;
    const std::size_t taken = Decode({text + at, size - at}, &character);
    if (taken == 0) {
      *bad = "the byte 0x" + Hex(static_cast<unsigned char>(text[at]), 2) + ", which is no UTF-8";
      return std::nullopt;
    }
    const auto code = CodeOf(character);
    if (!code) {
      *bad = "\"" + std::string(text + at, taken) + "\" (U+" + Hex(character, 4) +
             "), which Windows code page 1252 lacks";
      return std::nullopt;
    }
    text[written++] = static_cast<char>(*code);
    at += taken;
  }
  return std::string_view(text, written);
}

bool AppendAsUtf8(unsigned char code, std::string* text) {
  std::uint32_t character = code;
  if (code >= 0x80 && code < 0xA0) character = kUpper[code - 0x80u];
  if (character == 0 && code != 0) return false;
  if (character < 0x80) {
    text->push_back(static_cast<char>(character));
  } else if (character < 0x800) {
    text->push_back(static_cast<char>(0xC0 | character >> 6));
    text->push_back(static_cast<char>(0x80 | (character & 0x3F)));
  } else {
    text->push_back(static_cast<char>(0xE0 | character >> 12));
    text->push_back(static_cast<char>(0x80 | (character >> 6 & 0x3F)));
    text->push_back(static_cast<char>(0x80 | (character & 0x3F)));
  }
  return true;
}

}  // namespace scourwell::refc
