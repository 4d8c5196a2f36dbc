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

  // Returns when its timer has closed it. The owner is shown as `show` says just before that, so
  // that the program keeps its place in front.
  void ShowModal(HWND owner, int show);

 private:
  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  void OnCreate() override;
  void OnSize(Area area) override;
  void OnTimer(UINT_PTR id) override;
  void OnPaint(HDC dc) override;
  int BackColour() const override { return COLOR_WINDOW; }
  void Close();

  const Application& app_;
  Picture symbol_;
  Label lblName_;
  Label lblVersion_;
  Label lblText_;
  HWND owner_ = nullptr;
  int show_ = SW_SHOWNORMAL;
};

}  // namespace scourwell
