// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace scourwell {

// A component's entry point is called in a second process of this same program, so that whatever
// it does ends there. True when this process is such a child: it has then done its work, and the
// program ends with *exit_code. Nothing in the arguments or the environment alone makes a process a
// child.
bool RunAsChild(const std::string& arguments, int* exit_code);

}  // namespace scourwell
