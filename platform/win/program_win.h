// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace scourwell {

// The command line behind the program's name.
std::string CommandArguments();
// The folder that the program stands in.
std::string ProgramFolder();

}  // namespace scourwell
