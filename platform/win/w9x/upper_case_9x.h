// SPDX-License-Identifier: MIT
#pragma once

namespace scourwell {

// What Windows 95, 98 and Me do with a letter of their code page; the usual for any other.
char16_t UpperCase9x(char16_t unit);

}  // namespace scourwell
