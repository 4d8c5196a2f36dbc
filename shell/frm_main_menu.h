// SPDX-License-Identifier: MIT
#pragma once

#include "text/captions.h"
#include "widgets/gdi_handles.h"

namespace scourwell {

// The menu bar of frmMain.
class frmMainMenu {
 public:
  // The pages of the maker's that there are.
  struct WebPages {
    bool support;
    bool home;
  };
  // Gives the window its menu, which then belongs to the window.
  void Create(HWND window, const Captions& captions, WebPages pages);
  void Enable(int id, bool enabled) const;

 private:
  HMENU menu_ = nullptr;
};

}  // namespace scourwell
