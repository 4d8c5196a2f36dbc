// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "offline/posix_tree.h"
#include "platform/files.h"

namespace scourwell {

// Gets a name and the system's kind of entry; returns false to end the reading.
using VisitName = std::function<bool(const char* name, unsigned char kind)>;

// Every name in an open folder but "." and "..".
Outcome ReadFolder(int folder, const VisitName& visit);

}  // namespace scourwell
