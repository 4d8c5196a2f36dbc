#pragma once

#include "platform/code_pages.h"

namespace scourwell {

class CodePagesWin : public CodePages {
 public:
  unsigned System() override;
  Outcome ToSystem(unsigned code_page, std::string* text) override;
};

}  // namespace scourwell
