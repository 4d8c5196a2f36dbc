// SPDX-License-Identifier: MIT
#pragma once

namespace scourwell {

struct ProgramVersion {
  int major = 0;
  int minor = 0;
  int revision = 0;
};

}  // namespace scourwell
