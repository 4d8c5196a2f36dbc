// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win/window_calls.h"

namespace scourwell {

// The system's numbers of its mouse pointers.
inline constexpr int kArrowPointer = 32512;
inline constexpr int kBusyPointer = 32514;
inline constexpr int kHandPointer = 32649;  // of newer systems

// Null when the system has no such pointer.
inline HCURSOR SystemPointer(int number) {
  return static_cast<HCURSOR>(
      Calls().Image(nullptr, number, IMAGE_CURSOR, 0, LR_DEFAULTSIZE | LR_SHARED));
}

// The busy pointer, as long as it lives.
class BusyPointer {
 public:
  BusyPointer() : old_(SetCursor(SystemPointer(kBusyPointer))) {}
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;
  ~BusyPointer() { SetCursor(old_); }

 private:
  HCURSOR old_;
};

}  // namespace scourwell
