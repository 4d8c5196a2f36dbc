// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/outcome.h"
#include "text/captions.h"

namespace scourwell {

// Why something failed, in the user's language; the error log has the whole story. What the system
// says of its own codes is in its language. Empty when nothing failed.
std::string ReasonText(const Captions& captions, const Outcome& outcome);

}  // namespace scourwell
