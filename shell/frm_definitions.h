// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "shell/application.h"
#include "widgets/window_env.h"

namespace scourwell {

// Definitions that the user brings: what is asked and shown. True when others are in use now.

// Asks for a file.
bool ChooseDefinitions(const WindowEnv& env, Application& app);
// Files that were dropped on a window.
bool LoadDropped(const WindowEnv& env, Application& app, const std::vector<std::string>& paths);
// Back to those before.
bool LoadFormerDefinitions(const WindowEnv& env, Application& app);

}  // namespace scourwell
