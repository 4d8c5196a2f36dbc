// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace scourwell {

// The security identifier of who runs the program, as a text such as "S-1-5-21-...". Empty on
// Windows 95, 98 and Me, which have none.
std::string CurrentUser();

}  // namespace scourwell
