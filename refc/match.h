// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "refc/definition_set.h"

namespace scourwell::refc {

struct Hit {
  std::uint8_t sequence;
  const Row* row;
};

// The rows that would hit an item: a path, a name, a registry key or value ("key\\name"), a
// cookie, or "kind:text". A path's folders count, too: what lies in a folder goes with it. Rows
// below a folder token hit wherever a folder of that name is above. Patterns hit as on the most
// generous Windows.
std::vector<Hit> Match(const DefinitionSet& set, std::string_view item);

}  // namespace scourwell::refc
