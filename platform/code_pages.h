#pragma once

#include <string>
#include <string_view>

#include "platform/outcome.h"

namespace scourwell {

// Texts that were written on a machine with other letters. All windows show the ANSI code page of
// the system, and no other.
class CodePages {
 public:
  virtual ~CodePages() = default;

  // The system's ANSI code page, e.g. 1252.
  virtual unsigned System() = 0;

  // Turns `text` from `code_page` into the system's. A letter that the system lacks becomes the
  // nearest that it has, else "?". Fails, and leaves the text alone, where `code_page` is not
  // installed.
  virtual Outcome ToSystem(unsigned code_page, std::string* text) = 0;
};

}  // namespace scourwell
