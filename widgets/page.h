// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/window.h"

namespace scourwell {

// A child of the main window that fills its client area: no caption, no border.
class Page : public Window {
 public:
  ~Page() override;

  // `client`: the window that holds the pages.
  void CreateIn(HWND client);

  // The button that Enter presses when no button has the focus; null: none.
  virtual HWND DefaultButton() const = 0;
  // What Escape presses; null: nothing.
  virtual HWND EscapeButton() const { return nullptr; }
  // Where the focus goes when the page comes up.
  virtual HWND FirstFocus() const = 0;

 protected:
  using Window::Window;

  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  LRESULT Default(UINT message, WPARAM wparam, LPARAM lparam) override {
    return Calls().PageDefault(hwnd(), message, wparam, lparam);
  }
};

}  // namespace scourwell
