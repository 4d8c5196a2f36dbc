// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace scourwell {

// Bytes that nobody can guess, from the system's generator; where it has none, from its clocks.
std::string RandomBytes(std::size_t count);

}  // namespace scourwell
