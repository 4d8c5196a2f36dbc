// SPDX-License-Identifier: MIT
#include "backup/frm_backup.h"

#include <algorithm>

#include "backup/frm_backup_contents.h"
#include "text/text.h"
#include "widgets/access_keys.h"
#include "widgets/folder_dialog.h"
#include "widgets/message_box.h"
#include "widgets/resource.h"

namespace scourwell {
namespace {

constexpr std::size_t kMostNamed = 10;  // in a message

}  // namespace

frmBackup::frmBackup(const WindowEnv& env, Backups& backups, Clock& clock, std::string folder,
                     std::function<void()> help)
    : ListDialog(env, "frmBackup",
                 {IDC_BackupHeader, IDC_lblBackupHeading, IDC_lblBackupCount, IDC_lblBackupEmpty}),
      backups_(backups),
      clock_(clock),
      folder_(std::move(folder)),
      help_(std::move(help)) {}

SIZE frmBackup::FirstSize() const { return {metrics().Scale(520), metrics().Scale(330)}; }

void frmBackup::OnCreate() {
  CreateHeader(Text(Caption::BackupManagement), Text(Caption::NoBackupYet));
  BackupList_.row_count = [this] { return rows_.size(); };
  BackupList_.cell_text = [this](std::size_t row, int column) { return Cell(rows_[row], column); };
  BackupList_.Create(env_, hwnd(), IDC_BackupList);
  BackupList_.AddColumn(kDate, Text(Caption::ColumnBackupDate), metrics().Scale(150));
  BackupList_.AddColumn(kName, Text(Caption::ColumnBackupName), metrics().Scale(230));
  BackupList_.AddColumn(kSize, Text(Caption::ColumnBackupSize), metrics().Scale(100));
  AccessKeys keys;
  cmdRestore_.Create(env_, hwnd(), IDC_cmdRestore, keys.Add(Text(Caption::RestoreBackup)));
  cmdClean_.Create(env_, hwnd(), IDC_cmdClean, keys.Add(Text(Caption::Delete)));
  cmdOk_.Create(env_, hwnd(), IDCANCEL, Text(Caption::Cancel));
  cmdHelp_.Create(env_, hwnd(), IDC_cmdHelp, keys.Add(Text(Caption::Help)));
  Load();
}

void frmBackup::Load() {
  rows_ = backups_.List();
  BackupList_.SetItemCount(rows_.size());
  ShowEmpty(rows_.empty());
  SetHeaderText(Text(Caption::BackupsIn) + " " + folder_ + ": " + std::to_string(rows_.size()));
  if (!rows_.empty() && Selected() < 0) {
    BackupList_.FocusRow(0);
    BackupList_.Select(0, true);
  }
  BackupList_.Redraw();
  SelectionChanged();
}

void frmBackup::SelectionChanged() {
  const int row = Selected();
  const bool chosen = !busy_ && row >= 0 && static_cast<std::size_t>(row) < rows_.size();
  cmdRestore_.Enable(chosen);
  cmdClean_.Enable(chosen);
}

void frmBackup::OnSize(Area area) {
  Arrange(area, BackupList_, {&cmdRestore_, &cmdClean_}, {&cmdHelp_, &cmdOk_});
  RECT client = {};
  GetClientRect(BackupList_.hwnd(), &client);
  const int left = client.right - BackupList_.ColumnWidth(kDate) - BackupList_.ColumnWidth(kSize);
  BackupList_.SetColumnWidth(kName, std::max(left, metrics().Scale(120)));
}

LRESULT frmBackup::OnNotify(NMHDR* header) {
  if (const auto answer = BackupList_.Answer(header)) return *answer;
  const bool ours = header->hwndFrom == BackupList_.hwnd();
  if (ours && (header->code == LVN_ITEMCHANGED || header->code == LVN_ODSTATECHANGED)) {
    SelectionChanged();
  }
  return 0;
}

std::string frmBackup::Cell(const BackupRow& backup, int column) const {
  if (column == kDate) return clock_.GeneralDate(clock_.ToLocal(backup.modified));
  if (column == kSize) return std::to_string(backup.size);
  if (!backup.elsewhere) return backup.key;
  return backup.key + " (" + (backup.elsewhere->empty() ? "?" : *backup.elsewhere) + ")";
}

bool frmBackup::OnCommand(int id) {
  if (busy_) return true;
  switch (id) {
    case IDC_cmdRestore:
      cmdRestore_Click();
      return true;
    case IDC_cmdClean:
      cmdClean_Click();
      return true;
    case IDC_cmdHelp:
      help_();
      return true;
    case IDCANCEL:
      Close();
      return true;
    default:
      return false;
  }
}

void frmBackup::Busy(bool busy) {
  busy_ = busy;
  for (const Button* button : {&cmdHelp_, &cmdOk_}) button->Enable(!busy);
  BackupList_.Enable(!busy);
  SelectionChanged();
}

// Nothing changes before the user has seen what the archive holds.
void frmBackup::cmdRestore_Click() {
  const int row = Selected();
  if (row < 0) return;
  const std::string key = rows_[static_cast<std::size_t>(row)].key;
  const std::unique_ptr<RestoreRun> run = OpenRun(key);
  if (!run) return;
  frmBackupContents contents(env_, *run, key, help_);
  contents.ShowModal(hwnd());
  if (!contents.confirmed()) return;
  SetHeaderText(Text(Caption::RestoreInProgress));
  Busy(true);
  RestoreResult result;
  const Outcome outcome = backups_.Restore(*run, contents.chosen(), &result);
  Busy(false);
  Load();
  SetFocus(BackupList_.hwnd());
  ShowRestored(outcome, result);
}

std::unique_ptr<RestoreRun> frmBackup::OpenRun(const std::string& key) {
  Busy(true);
  std::unique_ptr<RestoreRun> run;
  const Outcome opened = backups_.Open(
      key,
      [&](std::uint32_t, const std::string& file_name, const Outcome&) {
        return AskForVolume(file_name);
      },
      &run);
  Busy(false);
  SetFocus(BackupList_.hwnd());
  if (!opened.ok()) ShowRestored(opened, {});
  return run;
}

std::string frmBackup::AskForVolume(const std::string& file_name) {
  return AskForFolder(hwnd(), Text(Caption::InsertBackupDisk) + "\r\n" + file_name);
}

void frmBackup::ShowRestored(const Outcome& outcome, const RestoreResult& result) {
  std::string kept;
  for (std::size_t i = 0; i < std::min(result.kept.size(), kMostNamed); ++i) {
    kept += "\r\n" + result.kept[i].kept_as;
  }
  if (!kept.empty()) kept = "\r\n\r\n" + Text(Caption::NewerFilesKept) + kept;
  if (outcome.ok() && result.failed.empty()) {
    return ShowMessage(Text(Caption::BackupRestored) + kept, Text(Caption::Information));
  }
  std::string failures;
  if (!outcome.ok()) failures += "\r\n" + outcome.description();
  for (std::size_t i = 0; i < std::min(result.failed.size(), kMostNamed); ++i) {
    failures += "\r\n" + result.failed[i].path + ": " + result.failed[i].why.description();
  }
  if (result.failed.size() > kMostNamed) failures += "\r\n... " + Text(Caption::AndMore);
  ShowMessage(Text(Caption::RestoreIncomplete) + failures + kept, Text(Caption::Error),
              MB_ICONERROR);
}

void frmBackup::cmdClean_Click() {
  const int row = Selected();
  if (row < 0) return;
  const std::string key = rows_[static_cast<std::size_t>(row)].key;
  if (!AskYesNo(Text(Caption::AskDeleteBackup) + "\r\n\r\n" + key, Text(Caption::Confirmation),
                kBeforeLoss)) {
    return;
  }
  const Outcome deleted = backups_.Delete(key);
  Load();
  SetFocus(BackupList_.hwnd());
  if (!deleted.ok()) {
    ShowMessage(Text(Caption::BackupNotDeleted) + "\r\n" + deleted.description(),
                Text(Caption::Error), MB_ICONERROR);
  }
}

}  // namespace scourwell
