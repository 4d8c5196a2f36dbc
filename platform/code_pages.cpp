// SPDX-License-Identifier: MIT
#include "platform/code_pages.h"

#include "text/escaped.h"
#include "text/unicode.h"

namespace scourwell {

std::string CodePages::Spelled(std::string_view text) {
  std::string unmistakable = Escaped(text, [](char32_t) { return true; });
  if (IsAscii(unmistakable) || Encode(unmistakable)) return unmistakable;
  // A half of a pair may have bytes of its own, and others beside another character.
  return Escaped(text, [&](char32_t code) {
    std::string character;
    AppendCode(code, &character);
    return code < 0x80 || (!IsSurrogate(code) && Encode(character).has_value());
  });
}

std::string CodePages::ToFile(std::string_view text) {
  const std::string spelled = Spelled(text);
  return IsAscii(spelled) ? spelled : Encode(spelled).value_or(std::string());
}

std::string CodePages::FromFile(std::string_view bytes) {
  std::string text;
  if (IsAscii(bytes)) {
    text = bytes;
  } else if (!Decode(System(), bytes, &text).ok()) {
    return {};
  }
  return Unescaped(text);
}

}  // namespace scourwell
