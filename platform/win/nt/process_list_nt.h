// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "platform/processes.h"

namespace scourwell {

// Running processes, as the NT family lists them.
Outcome ListProcessesNt(const Processes::Visit& visit);
// Paths of the modules of one process, the image first.
std::vector<std::string> ModulesNt(std::uint32_t process_id);

}  // namespace scourwell
