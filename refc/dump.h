// SPDX-License-Identifier: MIT
#pragma once

#include "refc/writer.h"

namespace scourwell::refc {

// Prints a reference file readably: every section and key as it stands, with its value in plain.
// In front of what the program reads otherwise than it stands, or not at all, a comment says why.
// The dump of a file that has no such thing is a source that makes the same definitions.
void DumpReference(const std::string& content, const Put& put);

}  // namespace scourwell::refc
