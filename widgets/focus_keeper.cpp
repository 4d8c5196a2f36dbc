// SPDX-License-Identifier: MIT
#include "widgets/focus_keeper.h"

namespace scourwell {
namespace {

bool MayFocus(HWND frame, HWND window) {
  return window && IsChild(frame, window) && IsWindowVisible(window) && IsWindowEnabled(window);
}

}  // namespace

void FocusKeeper::Note(HWND frame) {
  if (MayFocus(frame, GetFocus())) last_ = GetFocus();
}

void FocusKeeper::Restore(HWND frame, HWND otherwise) {
  if (!MayFocus(frame, last_)) last_ = otherwise;
  if (MayFocus(frame, last_)) SetFocus(last_);
}

void FocusKeeper::Move(HWND frame, HWND target) {
  last_ = target;
  if (GetActiveWindow() == frame) Restore(frame, target);
}

}  // namespace scourwell
