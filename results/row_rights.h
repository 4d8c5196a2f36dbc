// SPDX-License-Identifier: MIT
#pragma once

#include "platform/registry.h"
#include "results/hit_list.h"

namespace scourwell {

// False for a user who may not change what belongs to all of them.
bool HasAllRights(Registry& registry);

// Marks the rows that such a user cannot remove. Only the registry tells beforehand: of a file the
// try finds it out. `registry64`: null where there is only one view.
void LockRefusedRows(HitList* hits, Registry& registry, Registry* registry64);

}  // namespace scourwell
