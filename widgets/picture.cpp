// SPDX-License-Identifier: MIT
#include "widgets/picture.h"

#include "platform/win/window_calls.h"
#include "widgets/resource.h"

namespace scourwell {

Picture::Picture(const WindowEnv& env, int resource, int size)
    : size_(size), factor_(env.metrics.PictureFactor()) {
  bitmap_.Reset(static_cast<HBITMAP>(
      Calls().Image(env.instance, resource, IMAGE_BITMAP, 0, LR_CREATEDIBSECTION)));
  const int largest = size < 48 ? 32 : 48;
  icon_.Reset(
      static_cast<HICON>(Calls().Image(env.instance, IDI_Scourwell, IMAGE_ICON, largest, 0)));
}

void Picture::Draw(HDC dc, int x, int y) const {
  // The bitmap brings its own white; on a dark desktop the icon serves better.
  if (GetSysColor(COLOR_WINDOW) != RGB(255, 255, 255)) {
    DrawIconEx(dc, x, y, icon_.get(), 0, 0, 0, nullptr, DI_NORMAL);
    return;
  }
  const MemoryDc memory(CreateCompatibleDC(dc));
  const HGDIOBJ old = SelectObject(memory.get(), bitmap_.get());
  StretchBlt(dc, x, y, size(), size(), memory.get(), 0, 0, size_, size_, SRCCOPY);
  SelectObject(memory.get(), old);
}

}  // namespace scourwell
