// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "backup/backup_order.h"
#include "backup/backups.h"
#include "widgets/button.h"
#include "widgets/list_dialog.h"
#include "widgets/report_list_view.h"

namespace scourwell {

// The backup manager: the archives of the backup folder, to restore or to delete.
class frmBackup : public ListDialog {
 public:
  frmBackup(const WindowEnv& env, Backups& backups, Clock& clock, std::string folder,
            std::function<void()> help);

 private:
  SIZE FirstSize() const override;
  std::string Title() const override { return Text(Caption::BackupManagement); }
  HWND DefaultButton() const override { return cmdRestore_.hwnd(); }
  HWND FirstFocus() const override { return BackupList_.hwnd(); }
  void OnCreate() override;
  void OnSize(Area area) override;
  bool OnCommand(int id) override;
  LRESULT OnNotify(NMHDR* header) override;
  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  bool OnKey(WPARAM key) override;
  bool MayClose() override { return !busy_; }

  // Reads the folder anew; what was selected stays so.
  void Load();
  void ShowRows(const std::string& selected);
  std::string SelectedKey() const;
  void Sort(int column);
  void ShowMenu(POINT at);
  void CopyRow() const;
  int Selected() const { return BackupList_.Selected(); }
  void SelectionChanged();
  std::string Cell(const BackupRow& backup, int column) const;
  void cmdRestore_Click();
  void cmdClean_Click();
  void Busy(bool busy);
  std::unique_ptr<RestoreRun> OpenRun(const std::string& key);
  void ShowRestored(const Outcome& outcome, const RestoreResult& result);
  std::string AskForVolume(const std::string& file_name);

  Backups& backups_;
  Clock& clock_;
  std::string folder_;
  std::function<void()> help_;
  BackupOrder order_;
  std::vector<BackupRow> rows_;
  bool busy_ = false;
  ReportListView BackupList_;
  Button cmdRestore_;
  Button cmdClean_;
  Button cmdHelp_;
  Button cmdOk_;
};

}  // namespace scourwell
