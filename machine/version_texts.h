// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace scourwell {

// Four decimal numbers joined by points.
std::string VersionText(std::uint32_t high, std::uint32_t low);
// E.g. "Debug Private ": every flag with a blank behind it.
std::string FileFlagsText(std::uint32_t flags);
// E.g. "NT-Win32"; "Unknown" for any other code.
std::string OperatingSystemText(std::uint32_t code);
// E.g. "Driver"; "Unknown" for any other code.
std::string FileTypeText(std::uint32_t type);
// E.g. "Printer drv"; empty for types that have no subtypes, "Unknown" for any other code.
std::string FileSubtypeText(std::uint32_t type, std::uint32_t subtype);

}  // namespace scourwell
