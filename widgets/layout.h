// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/area.h"
#include "widgets/live_label.h"

namespace scourwell {

// Moves several windows at once, so that they do not flicker one after another. The moves happen
// when it goes out of scope.
class Layout {
 public:
  enum Mode { kMove, kMeasure };  // kMeasure: no window moves

  explicit Layout(Mode mode = kMove)
      : mode_(mode), batch_(mode == kMove ? BeginDeferWindowPos(24) : nullptr) {}
  Layout(const Layout&) = delete;
  Layout& operator=(const Layout&) = delete;
  ~Layout() {
    if (batch_) EndDeferWindowPos(batch_);
  }

  void Place(HWND window, const Area& area, UINT flags = 0);
  void Place(const Control& control, const Area& area) { Place(control.hwnd(), area); }
  // How much of its text is shown depends on the width, so the old picture is of no use.
  void Place(const LiveLabel& label, const Area& area) {
    Place(label.hwnd(), area, SWP_NOCOPYBITS);
  }

 private:
  Mode mode_;
  HDWP batch_;
};

}  // namespace scourwell
