// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/gdi_handles.h"

namespace scourwell {

// A bitmap to draw on, copied to the target when it goes out of scope.
class BackBuffer {
 public:
  BackBuffer(HDC target, const RECT& area)
      : target_(target),
        area_(area),
        dc_(CreateCompatibleDC(target)),
        bitmap_(CreateCompatibleBitmap(target, area.right - area.left, area.bottom - area.top)),
        old_(SelectObject(dc_.get(), bitmap_.get())) {
    SetViewportOrgEx(dc_.get(), -area.left, -area.top, nullptr);
  }
  BackBuffer(const BackBuffer&) = delete;
  BackBuffer& operator=(const BackBuffer&) = delete;
  ~BackBuffer() {
    BitBlt(target_, area_.left, area_.top, area_.right - area_.left, area_.bottom - area_.top,
           dc_.get(), area_.left, area_.top, SRCCOPY);
    SelectObject(dc_.get(), old_);
  }

  HDC dc() const { return dc_.get(); }

 private:
  HDC target_;
  RECT area_;
  MemoryDc dc_;
  BitmapHandle bitmap_;
  HGDIOBJ old_;
};

}  // namespace scourwell
