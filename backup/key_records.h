// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/registry.h"

namespace scourwell {

// What a registry script cannot say of a key.
struct KeyRecord {
  std::string path;  // with its root
  RegTraits traits;
};

// Such records as an archive keeps them beside the script; FORMAT.md describes them.
class KeyRecords {
 public:
  // Passes over keys of which there is nothing to say. False: it does not fit.
  bool Add(const std::string& path, const RegTraits& traits);
  const std::string& bytes() const { return bytes_; }

 private:
  std::string bytes_;
  std::string last_;  // descriptor
};

// Ends at what cannot be understood.
std::vector<KeyRecord> ReadKeyRecords(std::string_view bytes);

}  // namespace scourwell
