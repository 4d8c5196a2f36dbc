// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "definitions/spy_categories.h"
#include "scan/finding.h"
#include "text/captions.h"

namespace scourwell {

// What a finding is, how it is known and whose word that is, one line each: for a user who asks.
std::string Explanation(const Captions& captions, const Finding& finding,
                        const SpyCategories& categories);

}  // namespace scourwell
