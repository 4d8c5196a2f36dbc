// SPDX-License-Identifier: MIT
#include "shell/frm_splash.h"

#include "widgets/layout.h"
#include "widgets/resource.h"

namespace scourwell {
namespace {

constexpr UINT_PTR kTimer = 1;
constexpr UINT kDuration = 1200;  // milliseconds

}  // namespace

frmSplash::frmSplash(const WindowEnv& env, const Application& app)
    : Window(env, "frmSplash"), app_(app), symbol_(env, IDB_Banner, 64) {}

void frmSplash::ShowModal(HWND owner) {
  const int width = metrics().Scale(400);
  const int height = metrics().Scale(150);
  const int left = (GetSystemMetrics(SM_CXSCREEN) - width) / 2;
  const int top = (GetSystemMetrics(SM_CYSCREEN) - height) / 2;
  Frame frame;
  frame.parent = owner;
  frame.style = WS_POPUP | WS_BORDER;
  frame.place = {left, top, left + width, top + height};
  frame.title = Text(Caption::ProgramName);
  CreateHandle(frame);
  EnableWindow(owner, FALSE);
  // Not ShowWindow: its first call in a process obeys whoever started the program, and that one
  // belongs to the main window.
  SetWindowPos(hwnd(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW);
  SetTimer(hwnd(), kTimer, kDuration, nullptr);
  MSG message;
  while (!over_ && Calls().Next(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    Calls().Dispatch(&message);
  }
  KillTimer(hwnd(), kTimer);
  EnableWindow(owner, TRUE);
}

void frmSplash::Close() {
  if (hwnd()) DestroyWindow(hwnd());
}

void frmSplash::OnCreate() {
  lblName_.Create(env_, hwnd(), IDC_lblSplashName, Text(Caption::ProgramName));
  lblName_.SetFont(metrics().title());
  const ProgramVersion& version = app_.version();
  lblVersion_.Create(env_, hwnd(), IDC_lblSplashVersion,
                     std::to_string(version.major) + "." + std::to_string(version.minor) + " " +
                         Text(Caption::Revision) + std::to_string(version.revision));
  lblText_.Create(env_, hwnd(), IDC_lblSplashText, Text(Caption::AboutText), SS_LEFT);
}

void frmSplash::OnSize(Area area) {
  Layout layout;
  const int line = metrics().LineHeight();
  const int name = metrics().LineHeight(metrics().title());
  Area inner = area.Shrunk(metrics().Scale(24), 0);
  inner.CutLeft(symbol_.size() + metrics().Scale(20));
  inner.CutTop((area.height() - name - 4 * line - metrics().Scale(12)) / 2);
  layout.Place(lblName_, inner.CutTop(name));
  inner.CutTop(metrics().Scale(2));
  layout.Place(lblVersion_, inner.CutTop(line));
  inner.CutTop(metrics().Scale(10));
  layout.Place(lblText_, inner.CutTop(3 * line));
}

LRESULT frmSplash::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_LBUTTONDOWN || message == WM_KEYDOWN || message == WM_CLOSE) {
    over_ = true;
    return 0;
  }
  return Window::OnMessage(message, wparam, lparam);
}

void frmSplash::OnTimer(UINT_PTR) { over_ = true; }

void frmSplash::OnPaint(HDC dc) {
  Area area = ClientArea();
  symbol_.Draw(dc, metrics().Scale(24), (area.height() - symbol_.size()) / 2);
  RECT stripe = area.CutBottom(metrics().Scale(4)).rect();
  FillRect(dc, &stripe, GetSysColorBrush(COLOR_HIGHLIGHT));
}

}  // namespace scourwell
