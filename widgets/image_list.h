#pragma once

#include "widgets/gdi_handles.h"

namespace scourwell {

// A strip of square pictures from the resources; magenta is see-through.
inline ImageListHandle LoadImageList(HINSTANCE instance, int resource, int size) {
  return ImageListHandle(ImageList_LoadImageA(instance, MAKEINTRESOURCEA(resource), size, 0,
                                              RGB(255, 0, 255), IMAGE_BITMAP, LR_CREATEDIBSECTION));
}

}  // namespace scourwell
