// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>

#include "platform/outcome.h"

namespace scourwell {

// An open file or folder of this machine.
class UniqueFd {
 public:
  explicit UniqueFd(int fd = -1) : fd_(fd) {}
  UniqueFd(UniqueFd&& other) noexcept : fd_(other.Release()) {}
  UniqueFd& operator=(UniqueFd&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }
  ~UniqueFd();

  int get() const { return fd_; }
  int Release() { return std::exchange(fd_, -1); }
  explicit operator bool() const { return fd_ >= 0; }

 private:
  int fd_;
};

// Opens what lies below a folder, by names as they stand on the disk with "/" between them. No part
// may be a link, and none lies on another volume, whoever swaps one for a link meanwhile: such a
// way fails with ELOOP or EXDEV in errno.
UniqueFd OpenBeneath(int folder, const std::string& path, int flags, unsigned mode = 0);
// The same where the system has no call for it: one part after the other.
UniqueFd OpenPartByPart(int folder, const std::string& path, int flags, unsigned mode = 0);

// What the last call of the system failed with.
Outcome FailedWithErrno();
Outcome FailedWithErrno(int error);

}  // namespace scourwell
