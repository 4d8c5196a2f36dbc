// SPDX-License-Identifier: MIT
#include "widgets/activity_bar.h"

#include <oleacc.h>

#include <algorithm>

#include "widgets/back_buffer.h"
#include "widgets/spoken_name.h"

namespace scourwell {
namespace {

constexpr int kGroup = 5;  // blocks that wander together

}  // namespace

void ActivityBar::SetName(const std::string& name) {
  Calls().SetText(hwnd(), name);
  SetSpokenName(hwnd(), name);
  SetSpokenRole(hwnd(), ROLE_SYSTEM_PROGRESSBAR);
}

void ActivityBar::SetState(State state) {
  if (state == state_) return;
  state_ = state;
  step_ = 0;
  percent_ = -1;
  InvalidateRect(hwnd(), nullptr, FALSE);
}

void ActivityBar::Step(int percent) {
  if (state_ != State::Moving || (percent >= 0 && percent == percent_)) return;
  percent_ = percent;
  ++step_;
  InvalidateRect(hwnd(), nullptr, FALSE);
}

LRESULT ActivityBar::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_ERASEBKGND) return 1;
  if (message == WM_DESTROY) ClearSpokenName(hwnd());
  return Pane::OnMessage(message, wparam, lparam);
}

void ActivityBar::OnPaint(HDC dc) {
  RECT area = ClientArea().rect();
  if (IsRectEmpty(&area)) return;
  const BackBuffer buffer(dc, area);
  FillRect(buffer.dc(), &area, GetSysColorBrush(COLOR_BTNFACE));
  DrawEdge(buffer.dc(), &area, BDR_SUNKENOUTER, BF_RECT);
  Area inner = Area(area).Shrunk(2, 2);
  const int gap = 2;
  const int width = std::max(4, inner.height() * 2 / 3);
  const int blocks = inner.width() / (width + gap) + 1;
  for (int block = 0; block < blocks; ++block) {
    RECT box = inner.CutLeft(width).rect();
    box.right = std::min<LONG>(box.right, area.right - 2);
    inner.CutLeft(gap);
    if (Filled(block, blocks)) FillRect(buffer.dc(), &box, GetSysColorBrush(COLOR_HIGHLIGHT));
  }
}

bool ActivityBar::Filled(int block, int blocks) const {
  if (state_ != State::Moving) return state_ == State::Done;
  if (percent_ >= 0) return block < blocks * percent_ / 100;
  const int behind = step_ % (blocks + kGroup) - block;
  return behind >= 0 && behind < kGroup;
}

}  // namespace scourwell
