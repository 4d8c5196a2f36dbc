// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/outcome.h"

namespace scourwell {

// Texts that outlive the run, by section and key: the settings store, for those who know nothing
// of settings.
class KeptTexts {
 public:
  virtual ~KeptTexts() = default;
  // Empty when there is none.
  virtual std::string Get(const std::string& section, const std::string& key) = 0;
  virtual Outcome Set(const std::string& section, const std::string& key,
                      const std::string& text) = 0;
};

}  // namespace scourwell
