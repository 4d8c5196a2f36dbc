// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace scourwell {

// A 64-bit Windows shows its registry in two views. True for keys that are the same in both, from
// Windows 7 on; older ones keep two of some and copy what changes. `full_path` begins with the name
// of its root.
bool IsSharedByViews(std::string_view full_path);

}  // namespace scourwell
