// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "results/removal.h"
#include "widgets/button.h"
#include "widgets/header_pane.h"
#include "widgets/label.h"
#include "widgets/modal_window.h"
#include "widgets/text_view.h"

namespace scourwell {

// frmResults: what the last removal did. The six numbers count attempts; the list below them tells
// what really came of each object.
class frmResults : public ModalWindow {
 public:
  frmResults(const WindowEnv& env, const Removal& removal);

 private:
  static constexpr int kLines = 6;

  SIZE FirstSize() const override;
  bool MayResize() const override { return true; }
  std::string Title() const override { return Text(Caption::RemovalResults); }
  HWND DefaultButton() const override { return cmdOk_.hwnd(); }
  HWND FirstFocus() const override { return cmdOk_.hwnd(); }
  void OnCreate() override;
  void OnSize(Area area) override;
  bool OnCommand(int id) override;

  std::string Objects() const;
  std::string Summary() const;

  const Removal& removal_;
  HeaderPane header_;
  std::array<Label, kLines> captions_;
  std::array<Label, kLines> values_;
  Label lblObjects_;
  TextView txtObjects_;
  Button cmdOk_;
};

}  // namespace scourwell
