// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "refc/disk.h"
#include "refc/writer.h"

namespace scourwell::refc {

enum ExitCode : int { kFine = 0, kFound = 1, kUnusable = 2 };

// What the tool says, on its two ways out.
struct Console {
  Put out;
  Put err;
};

// `refc` with the words behind its name.
int Run(const std::vector<std::string>& words, Disk& disk, const Console& console);

}  // namespace scourwell::refc
