// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

#include "platform/outcome.h"

namespace scourwell::test {

// Counts every call to the ports of a machine and lets one fail, or that one and all that follow:
// for the machine, a program that ends there.
class Faults {
 public:
  enum class Kind { None, OneCall, ProgramEnds };

  void Plan(Kind kind, std::size_t at, ErrorCode error = kPermissionDenied) {
    kind_ = kind;
    at_ = at;
    error_ = error;
    calls_ = 0;
  }
  std::size_t calls() const { return calls_; }
  // What the next call ends with, without having had any effect.
  ErrorCode Next() {
    ++calls_;
    if (kind_ == Kind::None || calls_ < at_) return kNoError;
    return kind_ == Kind::ProgramEnds || calls_ == at_ ? error_ : ErrorCode(kNoError);
  }

 private:
  Kind kind_ = Kind::None;
  std::size_t at_ = 0;
  std::size_t calls_ = 0;
  ErrorCode error_;
};

}  // namespace scourwell::test
