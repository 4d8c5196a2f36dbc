// SPDX-License-Identifier: MIT
#pragma once

#include "refc/definition_set.h"

namespace scourwell::refc {

// Adds a source to a set: UTF-8 text, its lines in either of two forms.
//
// Below "[family]", or from the start when `stem` (the file's name without folder and extension)
// is that of a family, a line is a row of columns with tabs between them: spy, kind, what to look
// for, source, and perhaps a comment. In the family "release" it is a word of kReleaseValues and
// a text. Lines that begin with "#" are comments.
//
// Below "[SECTION]" of a reference file, a line is "key=value", numbered as there, as `refc dump`
// prints it. Lines that begin with ";" are comments.
//
// Rows of one sequence stay in the order in which they are read. What could not be stored as it
// stands is a finding.
void ReadSource(std::string name, std::string_view stem, std::string content, DefinitionSet* set,
                Findings* findings);

}  // namespace scourwell::refc
