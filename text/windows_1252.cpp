// SPDX-License-Identifier: MIT
#include "text/windows_1252.h"

#include "text/unicode.h"

namespace scourwell {
namespace {

// What lies between 0x80 and 0x9F; all else is numbered as in Unicode.
constexpr char16_t kMiddle[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                  0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                  0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                  0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::optional<char> ByteOf(char32_t code) {
  if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) return static_cast<char>(code);
  for (unsigned i = 0; i < 32; ++i) {
    if (kMiddle[i] == code) return static_cast<char>(0x80 + i);
  }
  return std::nullopt;
}

}  // namespace

std::string From1252(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    AppendCode(byte >= 0x80 && byte < 0xA0 ? kMiddle[byte - 0x80] : byte, &text);
  }
  return text;
}

std::optional<std::string> To1252(std::string_view text) {
  std::string bytes;
  for (std::size_t at = 0; at < text.size();) {
    const std::optional<char> byte = ByteOf(NextCode(text, &at));
    if (!byte) return std::nullopt;
    bytes += *byte;
  }
  return bytes;
}

}  // namespace scourwell
