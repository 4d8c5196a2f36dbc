// SPDX-License-Identifier: MIT
#pragma once

#include "shell/about.h"
#include "widgets/button.h"
#include "widgets/header_pane.h"
#include "widgets/modal_window.h"

namespace scourwell {

// Which program this is, in words that can be sent to somebody.
class frmAbout : public ModalWindow {
 public:
  frmAbout(const WindowEnv& env, Application& app);

 private:
  SIZE FirstSize() const override;
  std::string Title() const override { return Text(Caption::ProgramName); }
  HWND DefaultButton() const override { return cmdClose_.hwnd(); }
  HWND FirstFocus() const override { return cmdClose_.hwnd(); }
  void OnCreate() override;
  void OnSize(Area area) override;
  bool OnCommand(int id) override;

  int Width() const { return metrics().Scale(440); }
  int CaptionColumn() const;
  int ValueHeight(std::size_t line) const;

  Application& app_;
  std::array<AboutLine, kAboutLines> lines_;
  HeaderPane header_;
  std::array<Label, kAboutLines> captions_;
  std::array<Label, kAboutLines> values_;
  Button cmdCopy_;
  Button cmdClose_;
};

}  // namespace scourwell
