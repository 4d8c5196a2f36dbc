// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>

#include "shell/application.h"

namespace scourwell {

struct AboutLine {
  Caption caption;
  std::string value;
};
inline constexpr std::size_t kAboutLines = 4;

// What somebody who is asked for help wants to know: the definitions, the system and the folder of
// this copy.
std::array<AboutLine, kAboutLines> AboutLines(Application& app);
// The same as a text to be sent, with the version in front.
std::string AboutReport(Application& app);

}  // namespace scourwell
