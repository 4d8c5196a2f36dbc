// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <functional>

#include "platform/pump.h"

namespace scourwell {

// The message loop of the program and, inside long work, the yield to it. Both send each message
// through `translate` first, so that keys mean the same in either.
class PumpWin : public Pump {
 public:
  // Returns true when it dealt with the message (accelerators, dialog keys).
  std::function<bool(MSG*)> translate;

  // Runs until WM_QUIT; returns its exit code.
  int Run();

 protected:
  // Cheap unless some milliseconds have passed since the last time: a loop may call it per item.
  void YieldNow() override;

 private:
  void Dispatch(MSG* message);

  DWORD last_ = 0;
};

}  // namespace scourwell
