// SPDX-License-Identifier: MIT
#pragma once

#include "platform/code_pages.h"

namespace scourwell {

class CodePagesWin : public CodePages {
 public:
  unsigned System() override;
  Outcome Decode(unsigned code_page, std::string_view bytes, std::string* text) override;
  std::optional<std::string> Encode(std::string_view text) override;
};

}  // namespace scourwell
