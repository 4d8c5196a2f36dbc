// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "machine/error_log.h"
#include "platform/registry.h"

namespace scourwell {

// Deletes keys and values, and never what a link leads to. Key paths may begin and end with one
// "\".
class KeyRemover {
 public:
  // `on_denied` is called when the system denies the access to a key on the way.
  KeyRemover(Registry& registry, ErrorLog& log, std::function<void()> on_denied)
      : registry_(registry), log_(log), on_denied_(std::move(on_denied)) {}

  // Deletes a key with everything below it, deepest first. Links go as links; what lies behind one
  // that is not Windows' own is out of reach.
  RegStatus DeleteKey(RootKey root, std::string_view path);
  RegStatus DeleteValue(RootKey root, std::string_view path, const std::string& name);
  // True when the key, or one on the way to it, is a link that is not Windows' own.
  bool LeadsAside(RootKey root, std::string_view path);
  // True when that is so, or a key below it is a link.
  bool HasLinks(RootKey root, std::string_view path);

 private:
  bool IsLink(RootKey root, const std::string& path);
  bool HoldsLink(RootKey root, const std::string& path, unsigned depth);
  RegStatus DeleteTree(RootKey root, const std::string& path, unsigned depth, std::string* link);

  Registry& registry_;
  ErrorLog& log_;
  std::function<void()> on_denied_;
};

}  // namespace scourwell
