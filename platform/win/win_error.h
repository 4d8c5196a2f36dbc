// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include "platform/outcome.h"

namespace scourwell {

// A failure from a system error code: the classic number that stands for it, else the code with
// the system's own message.
Outcome FailedWith(DWORD code);
// The system's message for a code, without its line break; empty when it has none.
std::string SystemMessage(DWORD code);

}  // namespace scourwell
