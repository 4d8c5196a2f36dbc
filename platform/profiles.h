// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "platform/outcome.h"

namespace scourwell {

// The system's profile-string calls on an INI file.
class Profiles {
 public:
  virtual ~Profiles() = default;

  virtual std::string ReadProfile(const std::string& section, const std::string& key,
                                  const std::string& file) = 0;
  // No value deletes the key.
  virtual Outcome WriteProfile(const std::string& section, const std::string& key,
                               const std::optional<std::string>& value,
                               const std::string& file) = 0;
};

}  // namespace scourwell
