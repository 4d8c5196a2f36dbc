// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/outcome.h"

namespace scourwell {

// Something that happened to one item, and why.
struct ItemReport {
  std::string path;
  Outcome why;
};

}  // namespace scourwell
