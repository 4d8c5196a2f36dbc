#pragma once

#include "widgets/default_button.h"
#include "widgets/window.h"

namespace scourwell {

// A window above the one that opens it, which waits until it is closed. Enter presses the button
// with the focus or the default one, Escape the one for leaving, Tab goes round.
class Dialog : public Window {
 public:
  // In the middle of its owner. Returns when it has been closed.
  void ShowModal(HWND owner);

 protected:
  using Window::Window;

  struct Shape {
    int width = 0;  // of the client area, in pixels of the screen; also the smallest
    int height = 0;
    bool resizable = false;
  };
  virtual Shape WantedShape() const = 0;
  virtual std::string Title() const = 0;
  virtual HWND EnterButton() const = 0;
  virtual HWND EscapeButton() const = 0;
  virtual HWND FirstFocus() const = 0;
  // A key that means something in this window; true when it was used.
  virtual bool OnKey(const MSG&) { return false; }

  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  void Close();

 private:
  Area FirstPlace(HWND owner, DWORD style) const;
  bool Translate(MSG* message);

  HWND owner_ = nullptr;
  SIZE smallest_ = {0, 0};
  DefaultButton default_button_;
  HWND last_focus_ = nullptr;
};

}  // namespace scourwell
