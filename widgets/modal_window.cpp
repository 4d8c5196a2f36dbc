// SPDX-License-Identifier: MIT
#include "widgets/modal_window.h"

#include <algorithm>

#include "widgets/window_place.h"

namespace scourwell {
namespace {

constexpr DWORD kFixed = WS_POPUP | WS_CAPTION | WS_SYSMENU;
constexpr DWORD kResizable = kFixed | WS_THICKFRAME | WS_MAXIMIZEBOX;

}  // namespace

SIZE ModalWindow::WholeSize(SIZE client, bool menu) const {
  RECT frame = {0, 0, client.cx, client.cy};
  AdjustWindowRectEx(&frame, MayResize() ? kResizable : kFixed, menu, WS_EX_DLGMODALFRAME);
  return {frame.right - frame.left, frame.bottom - frame.top};
}

// It opens where the user left it, else in the middle of its owner, within the screen.
Area ModalWindow::Place(HWND owner, bool menu) const {
  if (MayResize()) {
    const WindowPlace place(env_, HelpTopic());
    if (const auto kept = place.Find(WholeSize(SmallestSize(), menu))) return *kept;
  }
  const SIZE size = WholeSize(FirstSize(), menu);
  RECT around = {};
  GetWindowRect(owner, &around);
  RECT desktop = {};
  Calls().Parameter(SPI_GETWORKAREA, 0, &desktop, 0);
  const Area work(desktop);
  const int width = std::min<int>(size.cx, work.width());
  const int height = std::min<int>(size.cy, work.height());
  const int left =
      std::clamp<int>((around.left + around.right - width) / 2, work.left, work.right - width);
  const int top =
      std::clamp<int>((around.top + around.bottom - height) / 2, work.top, work.bottom - height);
  return {left, top, left + width, top + height};
}

void ModalWindow::ShowModal(HWND owner) {
  owner_ = owner;
  HMENU menu = Menu();
  Frame frame;
  frame.parent = owner;
  frame.style = MayResize() ? kResizable : kFixed;
  frame.ex_style = WS_EX_CONTROLPARENT | (MayResize() ? 0 : WS_EX_DLGMODALFRAME);
  frame.id_or_menu = reinterpret_cast<INT_PTR>(menu);
  frame.place = Place(owner, menu != nullptr);
  frame.title = Title();
  CreateHandle(frame);
  EnableWindow(owner, FALSE);
  const bool maximized = MayResize() && WindowPlace(env_, HelpTopic()).maximized();
  ShowWindow(hwnd(), maximized ? SW_SHOWMAXIMIZED : SW_SHOW);
  SetFocus(FirstFocus());
  OnShown();
  default_button_.Follow(DefaultButton());
  MSG message;
  while (hwnd()) {
    const BOOL got = Calls().Next(&message, nullptr, 0, 0);
    if (got <= 0) {
      // The end of the program is for the main loop, too.
      if (got == 0) PostQuitMessage(static_cast<int>(message.wParam));
      break;
    }
    if (Translate(&message)) continue;
    TranslateMessage(&message);
    Calls().Dispatch(&message);
  }
}

bool ModalWindow::Translate(MSG* message) {
  if (message->hwnd != hwnd() && !IsChild(hwnd(), message->hwnd)) return false;
  default_button_.Follow(DefaultButton());
  if (message->message == WM_KEYDOWN) {
    const bool unfolded = Calls().Send(GetFocus(), CB_GETDROPPEDSTATE, 0, 0) == TRUE;
    const bool repeated = (message->lParam & (1 << 30)) != 0;
    if (message->wParam == VK_RETURN && !unfolded) {
      HWND button = default_button_.hwnd();
      if (button && IsWindowEnabled(button) && !repeated) Calls().Post(button, BM_CLICK, 0, 0);
      return true;
    }
    if (message->wParam == VK_ESCAPE && !unfolded) {
      if (!repeated) Calls().Post(hwnd(), WM_CLOSE, 0, 0);
      return true;
    }
    if (message->wParam == VK_F1 && env_.help) {
      if (!repeated) env_.help(HelpTopic());
      return true;
    }
    if (OnKey(message->wParam)) return true;
  }
  return Calls().TakeDialogKey(hwnd(), message) != FALSE;
}

LRESULT ModalWindow::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_CLOSE:
      // A message box of ours is asking something.
      if (IsWindowEnabled(hwnd()) && MayClose()) Close();
      return 0;
    case WM_GETMINMAXINFO: {
      const SIZE smallest = WholeSize(SmallestSize(), GetMenu(hwnd()) != nullptr);
      reinterpret_cast<MINMAXINFO*>(lparam)->ptMinTrackSize = {
          std::min<LONG>(smallest.cx, GetSystemMetrics(SM_CXSCREEN)),
          std::min<LONG>(smallest.cy, GetSystemMetrics(SM_CYSCREEN))};
      return 0;
    }
    case WM_NEXTDLGCTL: {
      // How an access key of a label reaches the control behind it.
      HWND next = LOWORD(lparam) ? reinterpret_cast<HWND>(wparam)
                                 : GetNextDlgTabItem(hwnd(), GetFocus(), wparam != 0);
      if (next) SetFocus(next);
      return 0;
    }
    case WM_ACTIVATE:
      if (LOWORD(wparam) == WA_INACTIVE && IsChild(hwnd(), GetFocus())) last_focus_ = GetFocus();
      break;
    case WM_SETFOCUS: {
      HWND target =
          IsWindow(last_focus_) && IsWindowEnabled(last_focus_) ? last_focus_ : FirstFocus();
      if (target) SetFocus(target);
      return 0;
    }
    default:
      break;
  }
  return Window::OnMessage(message, wparam, lparam);
}

// The owner comes first, or another program's window would get to the front.
void ModalWindow::Close() {
  if (MayResize()) WindowPlace(env_, HelpTopic()).Keep(hwnd());
  EnableWindow(owner_, TRUE);
  DestroyWindow(hwnd());
}

}  // namespace scourwell
