// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace scourwell {

// The command line behind the program's name.
std::string CommandArguments();

}  // namespace scourwell
