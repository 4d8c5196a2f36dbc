// SPDX-License-Identifier: MIT
#include "widgets/vertical_scroll.h"

#include <algorithm>

namespace scourwell {
namespace {

constexpr UINT kMouseWheel = 0x020A;  // WM_MOUSEWHEEL, since Windows 98 and NT 4

}  // namespace

void VerticalScroll::Fit(HWND window, int content, int view) {
  content_ = content;
  view_ = view;
  position_ = std::clamp(position_, 0, std::max(0, content - view));
  SCROLLINFO info = {};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMax = std::max(0, content - 1);
  info.nPage = static_cast<UINT>(std::max(0, view));
  info.nPos = position_;
  SetScrollInfo(window, SB_VERT, &info, TRUE);
}

bool VerticalScroll::OnMessage(HWND window, UINT message, WPARAM wparam, int line) {
  if (message == kMouseWheel) {
    const int notches = static_cast<short>(HIWORD(wparam)) / 120;
    return MoveTo(window, position_ - 3 * notches * line);
  }
  if (message != WM_VSCROLL) return false;
  switch (LOWORD(wparam)) {
    case SB_LINEUP:
      return MoveTo(window, position_ - line);
    case SB_LINEDOWN:
      return MoveTo(window, position_ + line);
    case SB_PAGEUP:
      return MoveTo(window, position_ - view_);
    case SB_PAGEDOWN:
      return MoveTo(window, position_ + view_);
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK:
      return MoveTo(window, static_cast<short>(HIWORD(wparam)));
    case SB_TOP:
      return MoveTo(window, 0);
    case SB_BOTTOM:
      return MoveTo(window, content_);
    default:
      return false;
  }
}

bool VerticalScroll::Reveal(HWND window, HWND child) {
  RECT area;
  GetWindowRect(child, &area);
  MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&area), 2);
  if (area.top < 0) return MoveTo(window, position_ + area.top);
  if (area.bottom > view_) return MoveTo(window, position_ + area.bottom - view_);
  return false;
}

bool VerticalScroll::MoveTo(HWND window, int position) {
  position = std::clamp(position, 0, std::max(0, content_ - view_));
  if (position == position_) return false;
  position_ = position;
  SetScrollPos(window, SB_VERT, position, TRUE);
  return true;
}

}  // namespace scourwell
