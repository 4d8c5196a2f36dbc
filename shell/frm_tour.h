// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "widgets/button.h"
#include "widgets/header_pane.h"
#include "widgets/modal_window.h"

namespace scourwell {

// The page of the first start: what is scanned, what backups do, and rights.
class frmTour : public ModalWindow {
 public:
  explicit frmTour(const WindowEnv& env);

 private:
  static constexpr std::size_t kTopics = 3;

  SIZE FirstSize() const override;
  std::string Title() const override { return Text(Caption::TourTitle); }
  HWND DefaultButton() const override { return cmdOk_.hwnd(); }
  HWND FirstFocus() const override { return cmdOk_.hwnd(); }
  void OnCreate() override;
  void OnSize(Area area) override;
  bool OnCommand(int id) override;

  int Width() const { return metrics().Scale(460); }
  int TextHeight(std::size_t topic) const;

  HeaderPane header_;
  std::array<Label, kTopics> headings_;
  std::array<Label, kTopics> texts_;
  Button cmdOk_;
};

}  // namespace scourwell
