// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace scourwell {

// Both know every name of a key: "ControlSet001" is a control set like the current one, and
// SOFTWARE\Classes is HKEY_CLASSES_ROOT. `full_path` begins with the name of its root.

// True for a registry key without which Windows or the programs on it do not work, and for every
// key that holds one: roots, "SOFTWARE\Microsoft", "CLSID" and their like.
bool IsProtectedKey(std::string_view full_path);

// True for a value without which Windows does not start or nobody can log on. An empty name is the
// key's unnamed value.
bool IsProtectedValue(std::string_view full_path, std::string_view name);

}  // namespace scourwell
