// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace scourwell {

// The bytes come from a file: all that they point at must lie in them. Windows NT 4 cannot tell;
// there the archive's mark has to do.
bool IsDescriptor(const std::string& bytes);

}  // namespace scourwell
