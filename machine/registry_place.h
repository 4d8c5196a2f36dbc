// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/registry.h"

namespace scourwell {

// "HKEY_CURRENT_USER" and the six others; none for an unknown name. Compared without case.
std::optional<RootKey> RootFromName(std::string_view name);
// The full name of the four classic roots; empty for the three others.
std::string_view NameFromRoot(RootKey root);

// Value data as text: types 1, 2 and 7 cut at the first NUL; 3, 5 and 6 as "0A FF"; 4 as
// "0x000000FF" (a value of fewer than four bytes is filled up with zeros); any other type
// "Temporary unsupported".
std::string ValueToText(const RegValue& value);

// A key path that begins with one of the four classic root names.
struct RegistryPlace {
  RootKey root = RootKey::CurrentUser;
  std::string path;  // below the root
};
// The path with the name of its root before it; the name of a root that is not classic is empty.
std::string FullKeyPath(const RegistryPlace& place);
// False for another root, or none.
bool SplitRegistryPlace(std::string_view full_path, RegistryPlace* place);

}  // namespace scourwell
