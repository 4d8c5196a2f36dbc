// SPDX-License-Identifier: MIT
#include "widgets/default_button.h"

#include "platform/win/window_calls.h"

namespace scourwell {
namespace {

bool IsPushButton(HWND window) {
  return window && (Calls().Send(window, WM_GETDLGCODE, 0, 0) &
                    (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
}

void SetStyle(HWND button, DWORD style) {
  if (IsWindow(button)) Calls().Send(button, BM_SETSTYLE, style, TRUE);
}

}  // namespace

void DefaultButton::Follow(HWND preferred) {
  const HWND focus = GetFocus();
  const HWND wanted = IsPushButton(focus) ? focus : preferred;
  if (wanted == current_) return;
  SetStyle(current_, BS_PUSHBUTTON);
  SetStyle(wanted, BS_DEFPUSHBUTTON);
  current_ = wanted;
}

}  // namespace scourwell
