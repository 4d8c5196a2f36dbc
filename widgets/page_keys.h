// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/default_button.h"
#include "widgets/page.h"

namespace scourwell {

// What keys mean in the main window: its accelerators, then Enter and Escape for the page in
// front; everything else as in any dialog.
class PageKeys {
 public:
  void Load(HINSTANCE instance, int accelerators);

  // True when the message was dealt with. `page` may be null.
  bool Translate(HWND frame, Page* page, MSG* message);

 private:
  bool Press(const Page& page, const MSG& message);

  HACCEL accelerators_ = nullptr;
  DefaultButton default_button_;
};

}  // namespace scourwell
