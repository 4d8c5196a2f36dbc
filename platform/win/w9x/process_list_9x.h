// SPDX-License-Identifier: MIT
#pragma once

#include "platform/processes.h"

namespace scourwell {

// Running processes, as Windows 95, 98 and Me list them.
Outcome ListProcesses9x(const Processes::Visit& visit);

}  // namespace scourwell
