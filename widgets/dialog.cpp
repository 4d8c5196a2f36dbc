#include "widgets/dialog.h"

#include <algorithm>

namespace scourwell {
namespace {

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU;
constexpr DWORD kExStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;

bool WantsReturn(HWND window) {
  return window && (SendMessageA(window, WM_GETDLGCODE, 0, 0) & DLGC_WANTALLKEYS) != 0 &&
         (GetWindowLongA(window, GWL_STYLE) & ES_READONLY) == 0;
}

}  // namespace

void Dialog::ShowModal(HWND owner) {
  owner_ = owner;
  const Shape shape = WantedShape();
  Frame frame;
  frame.parent = owner;
  frame.style = kStyle | (shape.resizable ? WS_THICKFRAME : 0u);
  frame.ex_style = shape.resizable ? DWORD{WS_EX_CONTROLPARENT} : kExStyle;
  frame.place = FirstPlace(owner, frame.style);
  frame.title = Title();
  smallest_ = {frame.place.width(), frame.place.height()};
  EnableWindow(owner, FALSE);
  CreateHandle(frame);
  ShowWindow(hwnd(), SW_SHOW);
  SetFocus(FirstFocus());
  MSG message = {};
  while (hwnd() && GetMessageA(&message, nullptr, 0, 0) > 0) {
    if (Translate(&message)) continue;
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
  if (message.message == WM_QUIT) PostQuitMessage(static_cast<int>(message.wParam));
}

Area Dialog::FirstPlace(HWND owner, DWORD style) const {
  const Shape shape = WantedShape();
  RECT frame = {0, 0, shape.width, shape.height};
  AdjustWindowRectEx(&frame, style, FALSE, kExStyle);
  RECT work = {};
  SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0);
  RECT around = work;
  if (IsWindowVisible(owner) && !IsIconic(owner)) GetWindowRect(owner, &around);
  const int width = std::min<int>(frame.right - frame.left, work.right - work.left);
  const int height = std::min<int>(frame.bottom - frame.top, work.bottom - work.top);
  const auto within = [](int wanted, int low, int high) {
    return std::max(low, std::min(wanted, high));
  };
  const int left = within((around.left + around.right - width) / 2, work.left, work.right - width);
  const int top = within((around.top + around.bottom - height) / 2, work.top, work.bottom - height);
  return {left, top, left + width, top + height};
}

bool Dialog::Translate(MSG* message) {
  if (message->hwnd != hwnd() && !IsChild(hwnd(), message->hwnd)) return false;
  default_button_.Follow(EnterButton());
  if (message->message == WM_KEYDOWN) {
    if (OnKey(*message)) return true;
    const bool enter = message->wParam == VK_RETURN && !WantsReturn(message->hwnd);
    if (enter || message->wParam == VK_ESCAPE) {
      HWND button = enter ? default_button_.hwnd() : EscapeButton();
      const bool repeated = (message->lParam & (1 << 30)) != 0;
      if (button && IsWindowEnabled(button) && !repeated) PostMessageA(button, BM_CLICK, 0, 0);
      return true;
    }
  }
  return IsDialogMessageA(hwnd(), message) != FALSE;
}

LRESULT Dialog::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_GETMINMAXINFO:
      reinterpret_cast<MINMAXINFO*>(lparam)->ptMinTrackSize = {smallest_.cx, smallest_.cy};
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(wparam) == WA_INACTIVE) {
        HWND focus = GetFocus();
        if (IsChild(hwnd(), focus)) last_focus_ = focus;
      } else if (last_focus_) {
        SetFocus(last_focus_);
      }
      return 0;
    case WM_CLOSE:
      Close();
      return 0;
    default:
      return Window::OnMessage(message, wparam, lparam);
  }
}

// The owner first: the system would activate another program's window otherwise.
void Dialog::Close() {
  EnableWindow(owner_, TRUE);
  DestroyWindow(hwnd());
}

}  // namespace scourwell
