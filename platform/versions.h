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

  // kFileNotFound also when the resource has no sound fixed part.
  Outcome ReadFixed(const std::string& path, FixedFileInfo* info);
};

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
