// SPDX-License-Identifier: MIT
#pragma once

#include "shell/application.h"
#include "widgets/label.h"
#include "widgets/picture.h"
#include "widgets/window.h"

namespace scourwell {

// The first sight of the program: symbol, name and version, for a moment.
class frmSplash : public Window {
 public:
  frmSplash(const WindowEnv& env, const Application& app);

  ~frmSplash() override { Close(); }

  // Returns when its moment has passed or a click or key has ended it. It stays until it is closed:
  // the program would lose its place in front while it had no window.
  void ShowModal(HWND owner);
  void Close();

 private:
  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  void OnCreate() override;
  void OnSize(Area area) override;
  void OnTimer(UINT_PTR id) override;
  void OnPaint(HDC dc) override;
  int BackColour() const override { return COLOR_WINDOW; }

  const Application& app_;
  Picture symbol_;
  Label lblName_;
  Label lblVersion_;
  Label lblText_;
  bool over_ = false;
};

}  // namespace scourwell
