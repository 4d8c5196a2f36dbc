// SPDX-License-Identifier: MIT
#include "platform/win/pump_win.h"

#include "platform/win/window_calls.h"

namespace scourwell {
namespace {

// Short against the tenth of a second in which Stop must answer, long against an item.
constexpr DWORD kInterval = 15;  // milliseconds

}  // namespace

int PumpWin::Run() {
  MSG message;
  while (Calls().Next(&message, nullptr, 0, 0) > 0) Dispatch(&message);
  return static_cast<int>(message.wParam);
}

void PumpWin::YieldNow() {
  const DWORD now = GetTickCount();
  if (now - last_ < kInterval) return;
  MSG message;
  while (Calls().Peek(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      // The outer loop must see it too.
      PostQuitMessage(static_cast<int>(message.wParam));
      set_closing(true);
      break;
    }
    Dispatch(&message);
  }
  last_ = GetTickCount();
}

void PumpWin::Dispatch(MSG* message) {
  if (translate && translate(message)) return;
  TranslateMessage(message);
  Calls().Dispatch(message);
}

}  // namespace scourwell
