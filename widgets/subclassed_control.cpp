// SPDX-License-Identifier: MIT
#include "widgets/subclassed_control.h"

#include "widgets/spoken_name.h"

namespace scourwell {

void SubclassedControl::Subclass(const WindowEnv& env, const char* name) {
  log_ = &env.log;
  name_ = name;
  Calls().SetLong(hwnd(), GWL_USERDATA, reinterpret_cast<LONG>(this));
  original_ = reinterpret_cast<WNDPROC>(
      Calls().SetLong(hwnd(), GWL_WNDPROC, reinterpret_cast<LONG>(Procedure)));
}

void SubclassedControl::Annotate(const std::string& name) {
  SetSpokenName(hwnd(), name);
  named_ = true;
}

// The control may outlive its object for a moment, while its parent is destroyed.
void SubclassedControl::Release() {
  if (!original_ || !hwnd_) return;
  Calls().SetLong(hwnd(), GWL_WNDPROC, reinterpret_cast<LONG>(original_));
  Calls().SetLong(hwnd(), GWL_USERDATA, 0);
  hwnd_ = nullptr;
}

LRESULT CALLBACK SubclassedControl::Procedure(HWND hwnd, UINT message, WPARAM wparam,
                                              LPARAM lparam) {
  auto* control = reinterpret_cast<SubclassedControl*>(Calls().Long(hwnd, GWL_USERDATA));
  if (!control) return Calls().WindowDefault(hwnd, message, wparam, lparam);
  if (message == WM_NCDESTROY) {
    if (control->named_) ClearSpokenName(hwnd);
    const WNDPROC original = control->original_;
    control->Release();
    return Calls().CallProcedure(original, hwnd, message, wparam, lparam);
  }
  LRESULT result = 0;
  control->log_->Trap(control->name_,
                      [&] { result = control->OnMessage(message, wparam, lparam); });
  return result;
}

}  // namespace scourwell
