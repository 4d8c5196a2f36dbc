// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace scourwell::test {

// As long as one lives, volumes of this machine keep what the drivers of NTFS show of an item. The
// tests run on volumes that have no room under those names: it is kept under others, which they
// have.
class NtfsDriver {
 public:
  NtfsDriver();
  NtfsDriver(const NtfsDriver&) = delete;
  NtfsDriver& operator=(const NtfsDriver&) = delete;
  ~NtfsDriver();

  // Of "attrib_be", "crtime_be", "acl" and "dos_name"; empty when there is none.
  static std::string Get(const std::string& path, const std::string& name);
  static void Set(const std::string& path, const std::string& name, const std::string& value);
};

}  // namespace scourwell::test
