// SPDX-License-Identifier: MIT
#include "widgets/window.h"

#include <utility>

#include "widgets/live_label.h"
#include "widgets/pointers.h"
#include "widgets/reflected.h"
#include "widgets/resource.h"

namespace scourwell {
namespace {

// The object whose window is about to be created: its first message claims it. Which message
// that is differs between kinds of windows, so none is waited for.
Window* creating = nullptr;

int TextColour(int back_colour) {
  return back_colour == COLOR_WINDOW ? COLOR_WINDOWTEXT : COLOR_BTNTEXT;
}

}  // namespace

Window::~Window() {
  if (hwnd_) DestroyWindow(hwnd_);
}

void Window::Register() const {
  NewClass made;
  made.name = name_;
  made.procedure = Procedure;
  made.instance = env_.instance;
  made.icon = static_cast<HICON>(
      Calls().Image(env_.instance, IDI_Scourwell, IMAGE_ICON, 0, LR_DEFAULTSIZE | LR_SHARED));
  made.cursor = SystemPointer(kArrowPointer);
  made.background = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(BackColour() + 1));
  Calls().Register(made);
}

void Window::CreateHandle(const Frame& frame) {
  Register();
  creating = this;
  NewWindow made;
  made.window_class = name_;
  made.text = frame.title;
  made.style = frame.style | WS_CLIPCHILDREN;
  made.ex_style = frame.ex_style;
  made.place = frame.place.rect();
  made.parent = frame.parent;
  made.id_or_menu = reinterpret_cast<HMENU>(frame.id_or_menu);
  made.instance = env_.instance;
  Calls().Create(made);
  creating = nullptr;
  if (!hwnd_) throw std::runtime_error(std::string("The window could not be created: ") + name_);
}

LRESULT CALLBACK Window::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
  auto* window = reinterpret_cast<Window*>(Calls().Long(hwnd, GWL_USERDATA));
  if (!window) {
    window = std::exchange(creating, nullptr);
    if (!window) return Calls().WindowDefault(hwnd, message, wparam, lparam);
    Calls().SetLong(hwnd, GWL_USERDATA, reinterpret_cast<LONG>(window));
    window->hwnd_ = hwnd;
  }
  LRESULT result = 0;
  const Outcome handled = window->env_.log.TrapOutcome(
      window->name_, [&] { result = window->OnMessage(message, wparam, lparam); });
  if (message == WM_CREATE && !handled.ok()) return -1;
  if (message == WM_NCDESTROY) {
    Calls().SetLong(hwnd, GWL_USERDATA, 0);
    window->hwnd_ = nullptr;
  }
  return result;
}

LRESULT Window::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_CREATE:
      OnCreate();
      return 0;
    case WM_SIZE:
      if (wparam != SIZE_MINIMIZED) OnSize(ClientArea());
      break;
    case WM_COMMAND:
      if (HIWORD(wparam) <= 1 && OnCommand(LOWORD(wparam))) return 0;
      break;
    case WM_NOTIFYFORMAT:
      if (lparam == NF_QUERY) return Calls().NotifyFormat();
      break;
    case WM_NOTIFY:
      return OnNotify(reinterpret_cast<NMHDR*>(lparam));
    case WM_TIMER:
      OnTimer(wparam);
      return 0;
    case WM_PAINT:
      Paint();
      return 0;
    case WM_DRAWITEM:
      DrawItem(wparam, lparam);
      return TRUE;
    case WM_CTLCOLORSTATIC:
      return ColourLabel(reinterpret_cast<HDC>(wparam));
    default:
      break;
  }
  return Default(message, wparam, lparam);
}

LRESULT Window::Default(UINT message, WPARAM wparam, LPARAM lparam) {
  return Calls().WindowDefault(hwnd_, message, wparam, lparam);
}

void Window::DrawItem(WPARAM wparam, LPARAM lparam) {
  const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lparam);
  if (item.CtlType == ODT_STATIC) {
    LiveLabel::Draw(item, BackColour(), TextColour(BackColour()));
  } else {
    Calls().Send(item.hwndItem, kReflectedDraw, wparam, lparam);
  }
}

void Window::Paint() {
  PAINTSTRUCT paint;
  OnPaint(BeginPaint(hwnd_, &paint));
  EndPaint(hwnd_, &paint);
}

LRESULT Window::ColourLabel(HDC dc) const {
  SetBkColor(dc, GetSysColor(BackColour()));
  SetTextColor(dc, GetSysColor(TextColour(BackColour())));
  return reinterpret_cast<LRESULT>(GetSysColorBrush(BackColour()));
}

HWND Window::Root() const {
  HWND root = hwnd_;
  while (Calls().Long(root, GWL_STYLE) & WS_CHILD) root = GetParent(root);
  return root;
}

Area Window::ClientArea() const {
  RECT client = {};
  GetClientRect(hwnd_, &client);
  return Area(client);
}

}  // namespace scourwell
