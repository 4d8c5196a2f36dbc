// SPDX-License-Identifier: MIT
#pragma once

#include "shell/application.h"
#include "widgets/window_env.h"

namespace scourwell {

// Asks for a file and saves the report of the last scan there.
void SaveReport(const WindowEnv& env, Application& app);

}  // namespace scourwell
