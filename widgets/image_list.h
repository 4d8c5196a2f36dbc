#pragma once

#include "widgets/gdi_handles.h"
#include "widgets/window_env.h"

namespace scourwell {

// A strip of square pictures from the resources; magenta is see-through.
inline ImageListHandle LoadImageList(HINSTANCE instance, int resource, int size) {
  return ImageListHandle(ImageList_LoadImageA(instance, MAKEINTRESOURCEA(resource), size, 0,
                                              RGB(255, 0, 255), IMAGE_BITMAP, LR_CREATEDIBSECTION));
}

// The same, with each pixel drawn as often as the screen's resolution asks for.
ImageListHandle LoadScaledImageList(const WindowEnv& env, int resource, int size);

}  // namespace scourwell
