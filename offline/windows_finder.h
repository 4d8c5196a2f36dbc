// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "platform/files.h"

namespace scourwell {

struct WindowsPlace {
  std::string folder;  // "C:\WINDOWS", by the names on the disk
  bool is_nt = true;
};

// Looks at the folders right in the roots of the drives, and at what an upgrade has put aside
// there.
std::vector<WindowsPlace> FindWindows(Files& files);

}  // namespace scourwell
