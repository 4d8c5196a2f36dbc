// SPDX-License-Identifier: MIT
#include "widgets/faded_icon.h"

#include "widgets/gdi_handles.h"

namespace scourwell {
namespace {

struct Pixel {
  BYTE blue, green, red, unused;
};

// A square that GDI draws on and whose pixels can be read.
class PixelSquare {
 public:
  PixelSquare(HDC like, int size) : dc_(CreateCompatibleDC(like)) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size;
    info.bmiHeader.biHeight = size;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    bitmap_.Reset(CreateDIBSection(dc_.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    pixels_ = static_cast<Pixel*>(bits);
    old_ = bitmap_ ? SelectObject(dc_.get(), bitmap_.get()) : nullptr;
  }
  PixelSquare(const PixelSquare&) = delete;
  PixelSquare& operator=(const PixelSquare&) = delete;
  ~PixelSquare() {
    if (old_) SelectObject(dc_.get(), old_);
  }

  HDC dc() const { return dc_.get(); }
  Pixel* pixels() const { return pixels_; }

 private:
  MemoryDc dc_;
  BitmapHandle bitmap_;
  Pixel* pixels_ = nullptr;
  HGDIOBJ old_ = nullptr;
};

bool Same(const Pixel& a, const Pixel& b) {
  return a.blue == b.blue && a.green == b.green && a.red == b.red;
}

BYTE Pale(int grey, BYTE ground) { return static_cast<BYTE>((2 * grey + 3 * ground) / 5); }

}  // namespace

void DrawFadedIcon(HDC dc, int x, int y, HICON icon, int size) {
  const PixelSquare ground(dc, size);
  const PixelSquare drawn(dc, size);
  if (!icon || !ground.pixels() || !drawn.pixels()) return;
  BitBlt(ground.dc(), 0, 0, size, size, dc, x, y, SRCCOPY);
  BitBlt(drawn.dc(), 0, 0, size, size, dc, x, y, SRCCOPY);
  DrawIconEx(drawn.dc(), 0, 0, icon, size, size, 0, nullptr, DI_NORMAL);
  GdiFlush();
  for (int i = 0; i < size * size; ++i) {
    const Pixel under = ground.pixels()[i];
    Pixel& over = drawn.pixels()[i];
    if (Same(under, over)) continue;
    const int grey = (3 * over.red + 6 * over.green + over.blue) / 10;
    over = {Pale(grey, under.blue), Pale(grey, under.green), Pale(grey, under.red), 0};
  }
  BitBlt(dc, x, y, size, size, drawn.dc(), 0, 0, SRCCOPY);
}

}  // namespace scourwell
