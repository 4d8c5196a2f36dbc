// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace scourwell {

// The form in which the NT family takes a path as it stands: behind "\\?\" nothing is rewritten, no
// dot or blank is cut off, no name means a device, and 32,767 characters have room. None for a path
// that is not absolute or holds "." or ".." parts.
std::optional<std::wstring> NativePath(std::string_view path);

// The path without that prefix.
std::string WithoutNativePrefix(const std::string& native);

// While it lives, file calls of this thread see the folders of a 64-bit Windows under their true
// names. Only for a single file call: libraries that are loaded meanwhile come from the wrong side.
class TrueNames {
 public:
  TrueNames();
  TrueNames(const TrueNames&) = delete;
  TrueNames& operator=(const TrueNames&) = delete;
  ~TrueNames();

 private:
  void* before_ = nullptr;
  bool switched_ = false;
};

}  // namespace scourwell
