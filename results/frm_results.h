// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <functional>

#include "results/removal.h"
#include "results/removal_summary.h"
#include "widgets/button.h"
#include "widgets/gdi_handles.h"
#include "widgets/header_pane.h"
#include "widgets/label.h"
#include "widgets/modal_window.h"
#include "widgets/report_list_view.h"

namespace scourwell {

// frmResults: what the last removal did. The six numbers count attempts; the list below them tells
// what really came of each object, what is still there first.
class frmResults : public ModalWindow {
 public:
  // `save_report` asks for a file and writes the report of the scan into it.
  frmResults(const WindowEnv& env, const Removal& removal, std::function<void()> save_report);

 private:
  static constexpr int kLines = 6;

  SIZE FirstSize() const override;
  SIZE SmallestSize() const override;
  SIZE SizeFor(int width, int objects) const;
  bool MayResize() const override { return true; }
  std::string Title() const override { return Text(Caption::RemovalResults); }
  HWND DefaultButton() const override { return cmdOk_.hwnd(); }
  HWND FirstFocus() const override { return cmdOk_.hwnd(); }
  void OnCreate() override;
  void OnSize(Area area) override;
  bool OnCommand(int id) override;
  LRESULT OnNotify(NMHDR* header) override;

  void CreateList();

  const Removal& removal_;
  RemovalSummary summary_;
  std::function<void()> save_report_;
  HeaderPane header_;
  std::array<Label, kLines> captions_;
  std::array<Label, kLines> values_;
  Label lblObjects_;
  ReportListView lstObjects_;
  ImageListHandle images_;
  Button cmdReport_;
  Button cmdOk_;
};

}  // namespace scourwell
