// SPDX-License-Identifier: MIT
#pragma once

#include "refc/definition_set.h"
#include "refc/disk.h"

namespace scourwell::refc {

// The name without folder and extension.
std::string_view Stem(std::string_view path);

// Adds what a path names: a folder of sources (its *.tsv files), a source, or, by the extension
// ".ref", a reference file. False when it cannot be read; *unreadable is the path then.
bool Load(Disk& disk, const std::string& path, DefinitionSet* set, Findings* findings,
          std::string* unreadable);

}  // namespace scourwell::refc
