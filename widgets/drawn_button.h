// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/subclassed_control.h"

namespace scourwell {

// A button that draws itself, with the keys, the focus and the messages of a system button. Under
// the mouse it comes alive.
class DrawnButton : public SubclassedControl {
 public:
  void Create(const WindowEnv& env, HWND parent, int id, const std::string& text);

  // Looks unavailable but can still be reached, so that its tool-tip can say why.
  void SetFaded(bool faded);
  bool faded() const { return faded_; }

 protected:
  struct State {
    bool focused;
    bool pressed;
    bool hot;     // the mouse is over it
    bool preset;  // Enter presses it
    UINT prefix;  // DrawText's flag for access keys
  };
  virtual void Draw(HDC dc, RECT area, const State& state) const = 0;
  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;

  const Metrics& metrics() const { return *metrics_; }
  HFONT font() const { return reinterpret_cast<HFONT>(Send(WM_GETFONT)); }

 private:
  void DrawItem(const DRAWITEMSTRUCT& item) const;
  void Follow();

  const Metrics* metrics_ = nullptr;
  bool faded_ = false;
  bool hot_ = false;
  bool preset_ = false;
};

}  // namespace scourwell
