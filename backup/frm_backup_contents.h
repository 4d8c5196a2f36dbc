// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "backup/restore_run.h"
#include "widgets/button.h"
#include "widgets/check_list_view.h"
#include "widgets/list_dialog.h"

namespace scourwell {

// What a backup holds, before any of it is restored. The checked items come back.
class frmBackupContents : public ListDialog {
 public:
  frmBackupContents(const WindowEnv& env, const RestoreRun& run, std::string name,
                    std::function<void()> help);

  // The user wants to restore.
  bool confirmed() const { return confirmed_; }
  const std::vector<bool>& chosen() const { return chosen_; }

 private:
  enum Column { kType, kSystem, kPlace, kSize, kStatus };

  SIZE FirstSize() const override;
  SIZE SmallestSize() const override;
  std::string Title() const override { return Text(Caption::BackupContents); }
  HWND DefaultButton() const override { return cmdRestore_.hwnd(); }
  HWND FirstFocus() const override { return ContentsList_.hwnd(); }
  void OnCreate() override;
  void OnSize(Area area) override;
  bool OnCommand(int id) override;
  LRESULT OnNotify(NMHDR* header) override;

  const BackupItem& Item(std::size_t row) const { return run_.items()[order_[row]]; }
  std::string Cell(const BackupItem& item, int column) const;
  std::string Status(const BackupItem& item) const;
  void Sort(int column);
  void Check(const std::vector<std::size_t>& rows, bool checked);
  void CheckAll(bool checked);
  void ShowCount();

  const RestoreRun& run_;
  std::string name_;
  std::function<void()> help_;
  std::vector<bool> chosen_;        // by item
  std::vector<std::size_t> order_;  // the item of each row
  int sorted_by_ = -1;
  bool ascending_ = true;
  bool confirmed_ = false;
  CheckListView ContentsList_;
  Button cmdCheckAll_;
  Button cmdUnCheckAll_;
  Button cmdRestore_;
  Button cmdHelp_;
  Button cmdCancel_;
};

}  // namespace scourwell
