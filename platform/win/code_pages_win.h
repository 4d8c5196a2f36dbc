#pragma once

#include <string_view>

#include "platform/code_pages.h"

namespace scourwell {

class CodePagesWin : public CodePages {
 public:
  unsigned System() override;
  Outcome ToSystem(unsigned code_page, std::string* text) override;
};

// A wide text in the system's ANSI code page, with the nearest letters where it lacks some.
std::string Narrow(std::wstring_view text);

}  // namespace scourwell
