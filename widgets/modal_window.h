// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/default_button.h"
#include "widgets/window.h"

namespace scourwell {

// A window with a caption that keeps its owner waiting, with the keys of a dialog: Tab, access
// keys, Enter, Escape.
class ModalWindow : public Window {
 public:
  // Returns when it was closed.
  void ShowModal(HWND owner);

 protected:
  using Window::Window;

  // The size of the client area, in pixels.
  virtual SIZE FirstSize() const = 0;
  virtual bool MayResize() const { return false; }
  // The client area that is always left.
  virtual SIZE SmallestSize() const { return FirstSize(); }
  virtual std::string Title() const = 0;
  virtual HMENU Menu() { return nullptr; }
  virtual HWND DefaultButton() const = 0;
  virtual HWND FirstFocus() const = 0;
  // The window is on the screen.
  virtual void OnShown() {}
  // A key of the window's own; true when it was one.
  virtual bool OnKey(WPARAM) { return false; }
  // Asked before it closes.
  virtual bool MayClose() { return true; }
  void Close();

  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;

 private:
  bool Translate(MSG* message);
  SIZE WholeSize(SIZE client, bool menu) const;
  Area Place(HWND owner, bool menu) const;

  HWND owner_ = nullptr;
  HWND last_focus_ = nullptr;
  class DefaultButton default_button_;
};

}  // namespace scourwell
