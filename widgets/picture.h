// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/window_env.h"

namespace scourwell {

// The program's symbol, for a surface in the window colour.
class Picture {
 public:
  // `resource`: a square bitmap on white, `size` pixels at 96 dots per inch.
  Picture(const WindowEnv& env, int resource, int size);

  int size() const { return size_ * factor_; }
  void Draw(HDC dc, int x, int y) const;

 private:
  BitmapHandle bitmap_;
  IconHandle icon_;
  int size_;
  int factor_;
};

}  // namespace scourwell
