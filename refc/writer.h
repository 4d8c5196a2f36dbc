// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string_view>

#include "refc/definition_set.h"

namespace scourwell::refc {

using Put = std::function<void(std::string_view)>;

// The set as a reference file: the release, the sections in the order of the catalogue with their
// entries numbered from 0, the counts. Lines end in CR LF, values are scrambled. The texts must be
// storable, as ReadSource makes sure.
void WriteReference(const DefinitionSet& set, const Put& put);

}  // namespace scourwell::refc
