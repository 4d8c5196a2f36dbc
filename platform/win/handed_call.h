// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/win/unique_handle.h"

namespace scourwell {

// An entry point of a library to be called by another process of this program. The call waits in a
// pipe that only that process inherits; a secret in it and on the command line proves that both
// are from us. Anybody can set variables or give command lines, but put nothing into the pipe.
struct HandedCall {
  std::string library;
  std::string name;
};

class CallPipe {
 public:
  // False with the reason in the last error.
  bool Send(const HandedCall& call);
  // What the other process must get as its arguments.
  std::string Arguments() const;

 private:
  KernelHandle reading_end_;
  std::string secret_;
};

// The call that was handed to this process by its arguments; none for any other start.
std::optional<HandedCall> ReceiveCall(std::string_view arguments);

}  // namespace scourwell
