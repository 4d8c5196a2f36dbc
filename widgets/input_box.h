#pragma once

#include "widgets/button.h"
#include "widgets/dialog.h"
#include "widgets/label.h"
#include "widgets/text_field.h"

namespace scourwell {

// Asks for one line of text.
class InputBox : public Dialog {
 public:
  InputBox(const WindowEnv& env, std::string prompt, std::string title, std::string answer);

  // False when the user cancelled.
  bool Ask(HWND owner, std::string* answer);

 private:
  Shape WantedShape() const override;
  std::string Title() const override { return title_; }
  HWND EnterButton() const override { return cmdOk_.hwnd(); }
  HWND EscapeButton() const override { return cmdCancel_.hwnd(); }
  HWND FirstFocus() const override { return txtAnswer_.hwnd(); }
  void OnCreate() override;
  void OnSize(Area area) override;
  bool OnCommand(int id) override;

  std::string prompt_;
  std::string title_;
  std::string answer_;
  bool accepted_ = false;
  Label lblPrompt_;
  TextField txtAnswer_;
  Button cmdOk_;
  Button cmdCancel_;
};

}  // namespace scourwell
