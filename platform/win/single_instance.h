// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win/unique_handle.h"

namespace scourwell {

// Holds the mark of the running program. It is global to the session, so that a copy started
// from another folder is recognised too.
class SingleInstance {
 public:
  SingleInstance();
  bool is_first() const { return first_; }

 private:
  KernelHandle mutex_;
  bool first_ = false;
};

}  // namespace scourwell
