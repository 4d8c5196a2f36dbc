#pragma once

#include <cstdint>
#include <string>

#include "platform/outcome.h"

namespace scourwell {

// The fixed part of a file's version resource, as it stands.
struct FixedFileInfo {
  std::uint32_t file_version_high = 0;
  std::uint32_t file_version_low = 0;
  std::uint32_t operating_system = 0;
};

class Versions {
 public:
  virtual ~Versions() = default;
  // kFileNotFound: no such file, or it has no version resource.
  virtual Outcome ReadFixed(const std::string& path, FixedFileInfo* info) = 0;
};

// Four decimal numbers joined by points.
std::string VersionText(std::uint32_t high, std::uint32_t low);
// E.g. "NT-Win32"; "Unknown" for any other code.
std::string OperatingSystemText(std::uint32_t code);

}  // namespace scourwell
