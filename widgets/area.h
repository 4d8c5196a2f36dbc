// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <algorithm>

namespace scourwell {

// A rectangle that a layout cuts up: each cut takes a strip off one side and hands it out.
struct Area {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  Area() = default;
  Area(int l, int t, int r, int b) : left(l), top(t), right(r), bottom(b) {}
  explicit Area(const RECT& rect) : Area(rect.left, rect.top, rect.right, rect.bottom) {}

  int width() const { return std::max(0, right - left); }
  int height() const { return std::max(0, bottom - top); }
  RECT rect() const { return {left, top, right, bottom}; }

  Area CutTop(int size) {
    const int old = top;
    top += size;
    return {left, old, right, top};
  }
  Area CutBottom(int size) {
    const int old = bottom;
    bottom -= size;
    return {left, bottom, right, old};
  }
  Area CutLeft(int size) {
    const int old = left;
    left += size;
    return {old, top, left, bottom};
  }
  Area CutRight(int size) {
    const int old = right;
    right -= size;
    return {right, top, old, bottom};
  }
  Area Shrunk(int x, int y) const { return {left + x, top + y, right - x, bottom - y}; }
};

}  // namespace scourwell
