// SPDX-License-Identifier: MIT
#include "tests/offline/ntfs_driver.h"

#include <doctest/doctest.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <string_view>

namespace scourwell::test {
namespace {

constexpr std::string_view kTold = "system.ntfs_";
bool present = false;

std::string KeptName(const std::string& name) { return "user.ntfs_" + name; }

std::string NameFor(const char* attribute) {
  const std::string_view name = attribute;
  if (!present || !name.starts_with(kTold)) return std::string(name);
  return KeptName(std::string(name.substr(kTold.size())));
}

}  // namespace

NtfsDriver::NtfsDriver() { present = true; }
NtfsDriver::~NtfsDriver() { present = false; }

std::string NtfsDriver::Get(const std::string& path, const std::string& name) {
  std::string value(256, '\0');
  const ssize_t size = getxattr(path.c_str(), KeptName(name).c_str(), value.data(), value.size());
  value.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
  return value;
}

void NtfsDriver::Set(const std::string& path, const std::string& name, const std::string& value) {
  REQUIRE(setxattr(path.c_str(), KeptName(name).c_str(), value.data(), value.size(), 0) == 0);
}

}  // namespace scourwell::test

// The program finds these before those of the system.
extern "C" ssize_t lgetxattr(const char* path, const char* name, void* value,
                             std::size_t size) noexcept {
  const std::string kept = scourwell::test::NameFor(name);
  return syscall(SYS_lgetxattr, path, kept.c_str(), value, size);
}

extern "C" int lsetxattr(const char* path, const char* name, const void* value, std::size_t size,
                         int flags) noexcept {
  const std::string kept = scourwell::test::NameFor(name);
  return static_cast<int>(syscall(SYS_lsetxattr, path, kept.c_str(), value, size, flags));
}
