// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace scourwell {

// The path of what the kernel calls "\Device\HarddiskVolume1\folder\file", "\??\C:\folder\file" or
// "\Device\LanmanRedirector\;Z:0000000000001234\server\share\file"; empty where neither a drive
// letter nor a server leads there.
std::string DosPathOf(const std::string& device_path);

}  // namespace scourwell
