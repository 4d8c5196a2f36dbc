// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/button.h"
#include "widgets/edit.h"
#include "widgets/label.h"
#include "widgets/modal_window.h"

namespace scourwell {

// Asks for one line of text.
class InputBox : public ModalWindow {
 public:
  InputBox(const WindowEnv& env, std::string prompt, std::string title, std::string answer);

  // False when the user cancelled.
  bool Ask(HWND owner, std::string* answer);

 private:
  SIZE FirstSize() const override;
  std::string Title() const override { return title_; }
  HWND DefaultButton() const override { return cmdOk_.hwnd(); }
  HWND FirstFocus() const override { return txtAnswer_.hwnd(); }
  void OnCreate() override;
  void OnShown() override;
  void OnSize(Area area) override;
  bool OnCommand(int id) override;

  std::string prompt_;
  std::string title_;
  std::string answer_;
  bool accepted_ = false;
  Label lblPrompt_;
  Edit txtAnswer_;
  Button cmdOk_;
  Button cmdCancel_;
};

}  // namespace scourwell
