// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "platform/registry.h"

namespace scourwell {

// One string value or key at a time.
class CRegister {
 public:
  explicit CRegister(Registry& registry) : registry_(registry) {}

  // With a value name: deletes that value ("*" is the unnamed one). Without: deletes the key.
  void DeleteEntry(RootKey root, std::string_view path, const std::string& name, RegStatus* status);
  std::string QueryString(RootKey root, std::string_view path, const std::string& name);
  // Writes a text without a terminating NUL; the key is created when missing.
  RegStatus SetString(RootKey root, std::string_view path, const std::string& name,
                      const std::string& text);
  // Strips one leading and one trailing "\".
  static std::string SplitKeyPath(std::string_view path);

 private:
  Registry& registry_;
};

}  // namespace scourwell
