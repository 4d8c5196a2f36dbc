// SPDX-License-Identifier: MIT
#pragma once

namespace scourwell {

// Makes Folding do what the running system does with names.
void UseSystemFolding();

}  // namespace scourwell
