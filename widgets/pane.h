// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/window.h"

namespace scourwell {

// A part of a page with controls of its own. Commands that it does not know go to the page.
class Pane : public Window {
 public:
  void Create(HWND parent, int id) {
    Frame frame;
    frame.parent = parent;
    frame.style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS;
    frame.ex_style = WS_EX_CONTROLPARENT;
    frame.id_or_menu = id;
    CreateHandle(frame);
  }

 protected:
  using Window::Window;

  bool OnCommand(int id) override {
    Calls().Send(GetParent(hwnd()), WM_COMMAND, static_cast<WPARAM>(id), 0);
    return true;
  }
};

}  // namespace scourwell
