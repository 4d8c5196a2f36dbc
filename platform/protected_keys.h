#pragma once

#include <string_view>

namespace scourwell {

// True for a registry key without which Windows or the programs on it do not work, and for every
// key that holds one: roots, "SOFTWARE\Microsoft", "CLSID" and their like. `full_path` begins with
// the name of its root.
bool IsProtectedKey(std::string_view full_path);

}  // namespace scourwell
