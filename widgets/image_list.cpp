// SPDX-License-Identifier: MIT
#include "widgets/image_list.h"

#include "platform/win/window_calls.h"

namespace scourwell {
namespace {

constexpr COLORREF kSeeThrough = RGB(255, 0, 255);

// Repeats pixels, so that no new colours come up at the edge of what is see-through.
BitmapHandle Enlarged(HBITMAP bitmap, int factor) {
  BITMAP from = {};
  Calls().Facts(bitmap, sizeof from, &from);
  HDC screen = GetDC(nullptr);
  const MemoryDc source(CreateCompatibleDC(screen));
  const MemoryDc target(CreateCompatibleDC(screen));
  BitmapHandle enlarged(
      CreateCompatibleBitmap(screen, from.bmWidth * factor, from.bmHeight * factor));
  ReleaseDC(nullptr, screen);
  const HGDIOBJ old_source = SelectObject(source.get(), bitmap);
  const HGDIOBJ old_target = SelectObject(target.get(), enlarged.get());
  SetStretchBltMode(target.get(), COLORONCOLOR);
  StretchBlt(target.get(), 0, 0, from.bmWidth * factor, from.bmHeight * factor, source.get(), 0, 0,
             from.bmWidth, from.bmHeight, SRCCOPY);
  SelectObject(source.get(), old_source);
  SelectObject(target.get(), old_target);
  return enlarged;
}

}  // namespace

ImageListHandle LoadScaledImageList(const WindowEnv& env, int resource, int size) {
  const int factor = env.metrics.PictureFactor();
  BitmapHandle bitmap(static_cast<HBITMAP>(
      Calls().Image(env.instance, resource, IMAGE_BITMAP, 0, LR_CREATEDIBSECTION)));
  if (factor > 1) bitmap = Enlarged(bitmap.get(), factor);
  ImageListHandle images(
      ImageList_Create(size * factor, size * factor, ILC_COLOR24 | ILC_MASK, 0, 8));
  ImageList_AddMasked(images.get(), bitmap.get(), kSeeThrough);
  return images;
}

}  // namespace scourwell
