// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/gdi_handles.h"
#include "widgets/window_env.h"

namespace scourwell {

// A strip of square pictures from the resources; magenta is see-through. Each pixel is drawn as
// often as the screen's resolution asks for.
ImageListHandle LoadScaledImageList(const WindowEnv& env, int resource, int size);

}  // namespace scourwell
