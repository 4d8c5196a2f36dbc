// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "widgets/button.h"
#include "widgets/combo_box.h"
#include "widgets/edit.h"
#include "widgets/label.h"
#include "widgets/modal_window.h"

namespace scourwell {

// Asks for the location, name and program of an entry.
class frmAddTask : public ModalWindow {
 public:
  frmAddTask(const WindowEnv& env, Caption title) : ModalWindow(env, "frmAddTask"), title_(title) {}

  // Before Ask. One location alone cannot be chosen.
  void AddPlace(const std::string& name) { places_.push_back(name); }
  void SetPlace(std::size_t place) { place_ = place; }
  void SetEntry(const std::string& name, const std::string& program) {
    name_ = name;
    program_ = program;
  }

  // False when the user cancels.
  bool Ask(HWND owner);
  std::size_t place() const { return place_; }
  const std::string& name() const { return name_; }
  const std::string& program() const { return program_; }

 private:
  SIZE FirstSize() const override;
  std::string Title() const override { return Text(title_); }
  HWND DefaultButton() const override { return cmdOk_.hwnd(); }
  HWND FirstFocus() const override;
  void OnCreate() override;
  void OnSize(Area area) override;
  bool OnCommand(int id) override;
  void Browse();
  void Accept();
  int RowHeight() const { return metrics().LineHeight() + metrics().Scale(8); }

  Caption title_;
  std::vector<std::string> places_;
  std::size_t place_ = 0;
  std::string name_;
  std::string program_;
  bool accepted_ = false;
  Label lblLocation_;
  ComboBox cboLocation_;
  Label lblName_;
  Edit txtName_;
  Label lblProgram_;
  Edit txtProgram_;
  Button cmdBrowse_;
  Button cmdOk_;
  Button cmdCancel_;
};

}  // namespace scourwell
