// SPDX-License-Identifier: MIT
#pragma once

#include <sys/resource.h>

#include <csignal>

namespace scourwell::test {

// No file of ours gets larger than this, as on a disk that is full. The system's usual answer would
// end the program.
class SmallFiles {
 public:
  explicit SmallFiles(rlim_t size) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit now = {size, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &now);
  }
  SmallFiles(const SmallFiles&) = delete;
  SmallFiles& operator=(const SmallFiles&) = delete;
  ~SmallFiles() { setrlimit(RLIMIT_FSIZE, &before_); }

 private:
  rlimit before_ = {};
};

}  // namespace scourwell::test
