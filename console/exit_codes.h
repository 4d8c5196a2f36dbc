// SPDX-License-Identifier: MIT
#pragma once

namespace scourwell {

// What the program ends with. A scan that is told to be stopped is 4, and one that could not see
// everything is 3, whatever it found.
enum ExitCode : int {
  kNothingFound = 0,  // of other commands: done
  kFound = 1,
  kAllRemoved = 2,
  kIncomplete = 3,  // or failed
  kStopped = 4,
  kUsage = 64,
};

}  // namespace scourwell
