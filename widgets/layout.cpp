// SPDX-License-Identifier: MIT
#include "widgets/layout.h"

namespace scourwell {

void Layout::Place(HWND window, const Area& area, UINT flags) {
  if (mode_ == kMeasure) return;
  flags |= SWP_NOZORDER | SWP_NOACTIVATE;
  if (batch_) {
    batch_ = DeferWindowPos(batch_, window, nullptr, area.left, area.top, area.width(),
                            area.height(), flags);
  }
  // Out of memory for the batch: one by one.
  if (!batch_) {
    SetWindowPos(window, nullptr, area.left, area.top, area.width(), area.height(), flags);
  }
}

}  // namespace scourwell
