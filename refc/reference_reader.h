// SPDX-License-Identifier: MIT
#pragma once

#include "refc/definition_set.h"

namespace scourwell::refc {

// Reads a reference file the way the program does: what the program would not see is no row, and
// a finding says why.
void ReadReference(std::string name, std::string content, DefinitionSet* set, Findings* findings);

}  // namespace scourwell::refc
