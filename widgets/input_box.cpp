// SPDX-License-Identifier: MIT
#include "widgets/input_box.h"

#include "widgets/layout.h"
#include "widgets/resource.h"

namespace scourwell {

InputBox::InputBox(const WindowEnv& env, std::string prompt, std::string title, std::string answer)
    : ModalWindow(env, "InputBox"),
      prompt_(std::move(prompt)),
      title_(std::move(title)),
      answer_(std::move(answer)) {}

bool InputBox::Ask(HWND owner, std::string* answer) {
  ShowModal(owner);
  if (accepted_) *answer = answer_;
  return accepted_;
}

SIZE InputBox::FirstSize() const {
  const int height = 2 * metrics().Margin() + metrics().LineHeight() + metrics().Gap() +
                     metrics().FieldHeight() + metrics().Margin() + metrics().ButtonHeight();
  return {metrics().Scale(360), height};
}

void InputBox::OnCreate() {
  lblPrompt_.Create(env_, hwnd(), IDC_lblPrompt, prompt_);
  txtAnswer_.Create(env_, hwnd(), IDC_txtAnswer);
  cmdOk_.Create(env_, hwnd(), IDOK, Text(Caption::Ok));
  cmdCancel_.Create(env_, hwnd(), IDCANCEL, Text(Caption::Cancel));
}

// A field without a width would scroll its text away.
void InputBox::OnShown() {
  txtAnswer_.SetText(answer_);
  txtAnswer_.SelectAll();
}

void InputBox::OnSize(Area area) {
  Layout layout;
  Area inner = area.Shrunk(metrics().Margin(), metrics().Margin());
  layout.Place(lblPrompt_, inner.CutTop(metrics().LineHeight()));
  inner.CutTop(metrics().Gap());
  layout.Place(txtAnswer_, inner.CutTop(metrics().FieldHeight()));
  Area buttons = inner.CutBottom(metrics().ButtonHeight());
  layout.Place(cmdCancel_, buttons.CutRight(cmdCancel_.width()));
  buttons.CutRight(metrics().Gap());
  layout.Place(cmdOk_, buttons.CutRight(cmdOk_.width()));
}

bool InputBox::OnCommand(int id) {
  if (id != IDOK && id != IDCANCEL) return false;
  accepted_ = id == IDOK;
  answer_ = txtAnswer_.Text();
  Close();
  return true;
}

}  // namespace scourwell
