// SPDX-License-Identifier: MIT
#include "platform/win/family_calls.h"

#include "platform/win/control_calls.h"
#include "platform/win/dialog_calls.h"
#include "platform/win/family.h"
#include "platform/win/window_calls.h"

namespace scourwell {

const WindowCalls& Calls() {
  static const WindowCalls& calls = HasWideCalls() ? nt::Windows() : w9x::Windows();
  return calls;
}

const ControlCalls& Controls() {
  static const ControlCalls& calls = HasWideCalls() ? nt::Controls() : w9x::Controls();
  return calls;
}

const DialogCalls& Dialogs() {
  static const DialogCalls& calls = HasWideCalls() ? nt::Dialogs() : w9x::Dialogs();
  return calls;
}

}  // namespace scourwell
