// SPDX-License-Identifier: MIT
#include "widgets/drawn_button.h"

#include "widgets/back_buffer.h"
#include "widgets/reflected.h"

namespace scourwell {
namespace {

constexpr UINT_PTR kHotTimer = 1;
constexpr UINT kHotInterval = 80;        // milliseconds
constexpr UINT kNoAccelerators = 0x100;  // ODS_NOACCEL

bool MouseIsOver(HWND window) {
  POINT mouse;
  GetCursorPos(&mouse);
  return WindowFromPoint(mouse) == window;
}

}  // namespace

void DrawnButton::Create(const WindowEnv& env, HWND parent, int id, const std::string& text) {
  metrics_ = &env.metrics;
  CreateHandle(env, parent, "BUTTON", WS_TABSTOP | BS_OWNERDRAW | BS_NOTIFY, 0, id, text);
  Subclass(env, "DrawnButton");
}

void DrawnButton::SetFaded(bool faded) {
  faded_ = faded;
  Redraw();
}

LRESULT DrawnButton::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case kReflectedDraw:
      DrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lparam));
      return TRUE;
    case WM_ERASEBKGND:
      return TRUE;
    case WM_GETDLGCODE:
      return DLGC_BUTTON | (preset_ ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
    case BM_SETSTYLE:
      // The style of a push button would take the drawing away from us.
      preset_ = (wparam & 0xF) == BS_DEFPUSHBUTTON;
      Redraw();
      return 0;
    case WM_MOUSEMOVE:
    case WM_TIMER:
      // Old systems do not tell when the mouse leaves.
      Follow();
      break;
    default:
      break;
  }
  return Default(message, wparam, lparam);
}

void DrawnButton::Follow() {
  const bool hot = MouseIsOver(hwnd());
  if (hot == hot_) return;
  hot_ = hot;
  if (hot) {
    SetTimer(hwnd(), kHotTimer, kHotInterval, nullptr);
  } else {
    KillTimer(hwnd(), kHotTimer);
  }
  Redraw();
}

void DrawnButton::DrawItem(const DRAWITEMSTRUCT& item) const {
  if (IsRectEmpty(&item.rcItem)) return;
  const BackBuffer buffer(item.hDC, item.rcItem);
  FillRect(buffer.dc(), &item.rcItem, GetSysColorBrush(COLOR_BTNFACE));
  SetBkMode(buffer.dc(), TRANSPARENT);
  const HGDIOBJ old = SelectObject(buffer.dc(), font());
  const UINT hide_prefix = 0x00100000;  // DT_HIDEPREFIX; older systems ignore it
  Draw(buffer.dc(), item.rcItem,
       {(item.itemState & ODS_FOCUS) != 0, (item.itemState & ODS_SELECTED) != 0, hot_, preset_,
        (item.itemState & kNoAccelerators) ? hide_prefix : 0});
  SelectObject(buffer.dc(), old);
}

}  // namespace scourwell
