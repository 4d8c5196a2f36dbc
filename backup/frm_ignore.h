// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "backup/ignore_list.h"
#include "widgets/button.h"
#include "widgets/check_list_view.h"
#include "widgets/list_dialog.h"

namespace scourwell {

// The ignore list: what scans shall not report. Checked records can be taken out again.
class frmIgnore : public ListDialog {
 public:
  frmIgnore(const WindowEnv& env, IgnoreList& ignore, std::function<void()> help);

 private:
  enum Column { kType, kSystem, kDetails };

  SIZE FirstSize() const override;
  std::string Title() const override { return Text(Caption::IgnoreList); }
  HWND DefaultButton() const override { return nullptr; }
  HWND FirstFocus() const override { return IgnoreListView_.hwnd(); }
  void OnCreate() override;
  void OnSize(Area area) override;
  bool OnCommand(int id) override;
  LRESULT OnNotify(NMHDR* header) override;

  void Load();
  void CmdRemove_Click();
  void Check(const std::vector<std::size_t>& rows, bool checked);
  void CheckAll(bool checked);
  std::string Field(std::size_t row, int column) const;
  void ShowCount();

  IgnoreList& ignore_;
  std::function<void()> help_;
  std::vector<IgnoreRecord> records_;
  std::vector<bool> checked_;
  CheckListView IgnoreListView_;
  Button cmdCheckAll_;
  Button cmdUnCheckAll_;
  Button CmdRemove_;
  Button cmdHelp_;
  Button cmdCancel_;
};

}  // namespace scourwell
