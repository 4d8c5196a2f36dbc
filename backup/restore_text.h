// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "backup/extractor.h"
#include "text/captions.h"

namespace scourwell {

// What the user is told of a restore: whether all is back, what is not and why, what is back but
// not quite as it was, and what was kept aside.
std::string RestoreText(const Captions& captions, const Outcome& outcome,
                        const RestoreResult& result);

}  // namespace scourwell
