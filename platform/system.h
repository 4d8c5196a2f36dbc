// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/outcome.h"

namespace scourwell {

// The system's version record. The fields below `csd_version` are filled only by the extended
// record and stay 0 in the basic one.
struct VersionRecord {
  std::uint32_t major = 0;
  std::uint32_t minor = 0;
  std::uint32_t build = 0;
  std::uint32_t platform = 0;
  std::string csd_version;  // raw, may hold NULs
  std::uint16_t service_pack_major = 0;
  std::uint16_t service_pack_minor = 0;
  std::uint16_t suite_mask = 0;
  std::uint8_t product_type = 0;
};

inline constexpr unsigned kExtendedVersionRecord = 156;  // bytes
inline constexpr unsigned kBasicVersionRecord = 148;

// What the system says of itself.
class System {
 public:
  virtual ~System() = default;

  // False when the system refuses a record of that size; *record is then untouched.
  virtual bool QueryVersion(unsigned record_size, VersionRecord* record) = 0;
  // Each is empty when the system returns nothing.
  virtual std::string WindowsFolder() = 0;
  virtual std::string SystemFolder() = 0;
  // The system folder of 32-bit programs on a 64-bit Windows; elsewhere there is none.
  virtual std::string Wow64Folder() { return {}; }
  virtual std::string TemporaryFolder() = 0;  // with its trailing "\"
  virtual std::string ShellFolder(int folder_id) = 0;
  virtual std::string Environment(const std::string& name) = 0;
  // The system's message for an error code; empty when it knows none.
  virtual std::string ErrorText(std::uint32_t code) = 0;
  virtual std::uint32_t LastError() = 0;
  virtual std::uint32_t OwnProcessId() = 0;

  // Bytes that nobody can guess; empty where the system has no source of them.
  virtual std::string RandomBytes(std::size_t count) = 0;

  // Ends a process and waits, a few seconds at most, until its files are free: `go_on` is called
  // meanwhile and says whether to wait on.
  virtual Outcome TerminateProcess(std::uint32_t process_id,
                                   const std::function<bool()>& go_on) = 0;
  // Asks for the path to be deleted at the next start, as the NT family does; fails on Windows 95,
  // 98 and Me.
  virtual Outcome DeleteAtReboot(const std::string& path) = 0;
};

}  // namespace scourwell
