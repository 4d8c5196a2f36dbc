// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace scourwell {

// The path on a drive of what the kernel calls "\Device\HarddiskVolume1\folder\file"; empty where
// no drive letter leads there.
std::string DosPathOf(const std::string& device_path);

}  // namespace scourwell
