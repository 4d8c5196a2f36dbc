// SPDX-License-Identifier: MIT
#include "widgets/header_pane.h"

#include <algorithm>

#include "widgets/layout.h"
#include "widgets/resource.h"

namespace scourwell {

HeaderPane::HeaderPane(const WindowEnv& env, Size size, Ids ids)
    : Pane(env, "ScourwellHeader"),
      size_(size),
      ids_(ids),
      symbol_(env, size == Size::Large ? IDB_Banner : IDB_Banner32, size == Size::Large ? 64 : 32) {
}

int HeaderPane::Margin() const { return large() ? metrics().WideMargin() : metrics().Margin(); }

int HeaderPane::HeadingHeight() const {
  return metrics().LineHeight(large() ? metrics().title() : metrics().heading());
}

// What the parent's width leaves beside the symbol.
int HeaderPane::TextWidth() const {
  RECT parent = {};
  if (hwnd()) GetClientRect(GetParent(hwnd()), &parent);
  return parent.right - 2 * Margin() - symbol_.size() - metrics().Margin() - right_below_width_;
}

bool HeaderPane::Wraps() const {
  return large() || (hwnd() && metrics().TextWidth(text_.Text()) > TextWidth());
}

int HeaderPane::TextHeight() const {
  return metrics().LineHeight() * (large() ? 3 : Wraps() ? 2 : 1);
}

int HeaderPane::Height() const {
  const int texts = HeadingHeight() + metrics().Scale(3) + TextHeight();
  return std::max(texts, symbol_.size()) + 2 * metrics().Margin();
}

void HeaderPane::OnCreate() {
  heading_.Create(env_, hwnd(), ids_.heading);
  heading_.SetFont(large() ? metrics().title() : metrics().heading());
  text_.Create(env_, hwnd(), ids_.text, large() ? DT_WORDBREAK : DT_END_ELLIPSIS);
  if (ids_.right != 0) right_.Create(env_, hwnd(), ids_.right, DT_RIGHT);
  if (ids_.right_below != 0) right_below_.Create(env_, hwnd(), ids_.right_below, DT_RIGHT);
}

void HeaderPane::ReserveRight(const std::string& text, const std::string& below) {
  right_width_ = metrics().TextWidth(text) + metrics().Gap();
  right_below_width_ = metrics().TextWidth(below) + metrics().Gap();
}

void HeaderPane::OnSize(Area area) {
  Layout layout;
  Area inner = area.Shrunk(Margin(), metrics().Margin());
  inner.CutLeft(symbol_.size() + metrics().Margin());
  const int texts = HeadingHeight() + metrics().Scale(3) + TextHeight();
  inner.CutTop(std::max(0, (inner.height() - texts) / 2));
  Area heading = inner.CutTop(HeadingHeight());
  if (ids_.right != 0) {
    Area right = heading.CutRight(right_width_);
    right.CutTop((right.height() - metrics().LineHeight()) / 2);
    layout.Place(right_, right);
  }
  layout.Place(heading_, heading);
  // A long welcome is rather small than cut off.
  const bool fits = metrics().TextWidth(metrics().title(), heading_.Text()) <= heading.width();
  if (large()) heading_.SetFont(fits ? metrics().title() : metrics().heading());
  inner.CutTop(metrics().Scale(3));
  text_.SetFormat(Wraps() ? DT_WORDBREAK | DT_END_ELLIPSIS : DT_END_ELLIPSIS);
  Area text = inner.CutTop(TextHeight());
  if (ids_.right_below != 0) layout.Place(right_below_, text.CutRight(right_below_width_));
  layout.Place(text_, text);
}

void HeaderPane::OnPaint(HDC dc) {
  Area area = ClientArea();
  RECT edge = area.CutBottom(2).rect();
  DrawEdge(dc, &edge, EDGE_ETCHED, BF_BOTTOM);
  const int y = (area.height() - symbol_.size()) / 2;
  symbol_.Draw(dc, Margin(), std::max(0, y));
}

}  // namespace scourwell
