// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/outcome.h"

namespace scourwell {

// Text files that others read too are written in the system's ANSI code page, as they always were;
// packs of other machines come in code pages of their own.
class CodePages {
 public:
  virtual ~CodePages() = default;

  // The system's ANSI code page, e.g. 1252.
  virtual unsigned System() = 0;
  // Turns bytes of a code page into text. Fails, and leaves *text alone, where it is not installed.
  virtual Outcome Decode(unsigned code_page, std::string_view bytes, std::string* text) = 0;
  // The bytes of a text in the system's code page; none where it lacks a letter.
  virtual std::optional<std::string> Encode(std::string_view text) = 0;

  // The text with the escaped form (see Escaped) of each character that the system's code page
  // lacks.
  std::string Spelled(std::string_view text);
  // What a text file holds for this text: the bytes of that.
  std::string ToFile(std::string_view text);
  // The way back, exact.
  std::string FromFile(std::string_view bytes);
};

}  // namespace scourwell
