#pragma once

#include <windows.h>

namespace scourwell {

// The busy mouse pointer, as long as it lives.
class BusyPointer {
 public:
  BusyPointer() : old_(SetCursor(LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_WAIT)))) {}
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;
  ~BusyPointer() { SetCursor(old_); }

 private:
  HCURSOR old_;
};

}  // namespace scourwell
