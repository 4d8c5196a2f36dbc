// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "offline/beneath.h"
#include "platform/files.h"

namespace scourwell {

// A copy of a file that nobody else sees and that goes with us. A library opens it by PathOf.
Outcome CopyPrivately(Files& files, const std::string& path, UniqueFd* copy);
// An empty one.
UniqueFd NewPrivateFile();
std::string PathOf(const UniqueFd& copy);

}  // namespace scourwell
