// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/outcome.h"

namespace scourwell {

// The fixed part of a file's version resource, as it stands.
struct FixedFileInfo {
  std::uint32_t file_version_high = 0;
  std::uint32_t file_version_low = 0;
  std::uint32_t operating_system = 0;
  std::uint32_t product_version_high = 0;
  std::uint32_t product_version_low = 0;
  std::uint32_t flags = 0;
  std::uint32_t type = 0;
  std::uint32_t subtype = 0;
};

// Version resources as raw blocks. Nothing of a block may be trusted: VersionResource reads it,
// because the system's own reader does not check what it follows on every Windows.
class Versions {
 public:
  virtual ~Versions() = default;

  // The whole resource; bytes without meaning may follow it. kFileNotFound: no such file, or it
  // has none. The system looks for a path without extension under other names too: a caller that
  // is not sure of the file asks Files first.
  virtual Outcome ReadBlock(const std::string& path, std::string* block) = 0;
  // The texts of 16-bit files, in the code page of the system.
  virtual std::string FromAnsi(std::string_view bytes) const;
};

}  // namespace scourwell
