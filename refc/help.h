// SPDX-License-Identifier: MIT
#pragma once

namespace scourwell::refc {

extern const char kHelp[];

}  // namespace scourwell::refc
