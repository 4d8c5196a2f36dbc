// SPDX-License-Identifier: MIT
#pragma once

#include "refc/commands.h"
#include "refc/definition_set.h"

namespace scourwell::refc {

// Prints what a set is worth: its rows by family, kind, category and certainty, the share that
// can be read up, spies with one row only, and rows that can never match.
void ShowStats(const DefinitionSet& set, Findings& findings, const Put& out);

}  // namespace scourwell::refc
