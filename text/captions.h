// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "text/caption_ids.h"

namespace scourwell {

// Every visible text: the active language pack first, the English default second.
class Captions {
 public:
  virtual ~Captions() = default;
  virtual std::string Text(Caption caption) const = 0;
};

}  // namespace scourwell
