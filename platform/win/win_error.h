#pragma once

#include <windows.h>

#include "platform/outcome.h"

namespace scourwell {

// The classic run-time number for a system error code; the code itself where there is none.
int ClassicNumber(DWORD code);
// A failure from a system error code, with the system's own message where no classic text fits.
Outcome FailedWith(DWORD code);
// The system's message for a code, without its line break; empty when it has none.
std::string SystemMessage(DWORD code);

}  // namespace scourwell
