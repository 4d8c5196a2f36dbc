// SPDX-License-Identifier: MIT
#pragma once

#include "platform/code_pages.h"

namespace scourwell {

// The code pages of another machine. A byte that one leaves free goes as half of a surrogate pair,
// U+DC00 plus the byte, and comes back.
class IconvCodePages : public CodePages {
 public:
  explicit IconvCodePages(unsigned system) : system_(system) {}

  unsigned System() override { return system_; }
  Outcome Decode(unsigned code_page, std::string_view bytes, std::string* text) override;
  std::optional<std::string> Encode(std::string_view text) override;

 private:
  unsigned system_;
};

}  // namespace scourwell
