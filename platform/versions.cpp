// SPDX-License-Identifier: MIT
#include "platform/versions.h"

#include "text/windows_1252.h"

namespace scourwell {

std::string Versions::FromAnsi(std::string_view bytes) const { return From1252(bytes); }

}  // namespace scourwell
