#include "widgets/window.h"

#include <utility>

#include "widgets/live_label.h"
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
  WNDCLASSA window_class = {};
  if (GetClassInfoA(env_.instance, name_, &window_class)) return;
  window_class = {};
  window_class.style = CS_HREDRAW | CS_VREDRAW;  // what is drawn depends on the size
  window_class.lpfnWndProc = Procedure;
  window_class.hInstance = env_.instance;
  window_class.hIcon = LoadIconA(env_.instance, MAKEINTRESOURCEA(IDI_Scourwell));
  window_class.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
  window_class.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(BackColour() + 1));
  window_class.lpszClassName = name_;
  RegisterClassA(&window_class);
}

void Window::CreateHandle(const Frame& frame) {
  Register();
  creating = this;
  const Area& place = frame.place;
  CreateWindowExA(frame.ex_style, name_, frame.title.c_str(), frame.style | WS_CLIPCHILDREN,
                  place.left, place.top, place.width(), place.height(), frame.parent,
                  reinterpret_cast<HMENU>(frame.id_or_menu), env_.instance, nullptr);
  creating = nullptr;
  if (!hwnd_) throw std::runtime_error(std::string("The window could not be created: ") + name_);
}

LRESULT CALLBACK Window::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
  auto* window = reinterpret_cast<Window*>(GetWindowLongA(hwnd, GWL_USERDATA));
  if (!window) {
    window = std::exchange(creating, nullptr);
    if (!window) return DefWindowProcA(hwnd, message, wparam, lparam);
    SetWindowLongA(hwnd, GWL_USERDATA, reinterpret_cast<LONG>(window));
    window->hwnd_ = hwnd;
  }
  LRESULT result = 0;
  const Outcome handled = window->env_.log.Trap(
      window->name_, [&] { result = window->OnMessage(message, wparam, lparam); });
  if (message == WM_CREATE && !handled.ok()) return -1;
  if (message == WM_NCDESTROY) {
    SetWindowLongA(hwnd, GWL_USERDATA, 0);
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
  return DefWindowProcA(hwnd_, message, wparam, lparam);
}

void Window::DrawItem(WPARAM wparam, LPARAM lparam) {
  const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lparam);
  if (item.CtlType == ODT_STATIC) {
    LiveLabel::Draw(item, BackColour(), TextColour(BackColour()));
  } else {
    SendMessageA(item.hwndItem, kReflectedDraw, wparam, lparam);
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
  while (GetWindowLongA(root, GWL_STYLE) & WS_CHILD) root = GetParent(root);
  return root;
}

Area Window::ClientArea() const {
  RECT client = {};
  GetClientRect(hwnd_, &client);
  return Area(client);
}

}  // namespace scourwell
