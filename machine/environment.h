// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "platform/system.h"

namespace scourwell {

// "%NAME%" replaced by what the environment says; unknown names stay.
std::string ExpandEnvironment(std::string_view text, System& system);

}  // namespace scourwell
