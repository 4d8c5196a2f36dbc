// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/files.h"

namespace scourwell {

// An absolute path with its parts as they stand on the disk, whether it was given by long or 8.3
// names and in whatever case: one item, one path. A part that does not exist stays as it is.
std::string RealPath(Files& files, const std::string& path);

}  // namespace scourwell
