// SPDX-License-Identifier: MIT
#include "backup/frm_backup.h"

#include <windowsx.h>

#include <algorithm>

#include "backup/frm_backup_contents.h"
#include "backup/restore_text.h"
#include "machine/counting.h"
#include "machine/reasons.h"
#include "widgets/access_keys.h"
#include "widgets/file_dialog.h"
#include "widgets/folder_dialog.h"
#include "widgets/gdi_handles.h"
#include "widgets/message_box.h"
#include "widgets/resource.h"

namespace scourwell {
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
  BackupList_.RememberWidths(env_, HelpTopic());
  BackupList_.SetName(Title());
  BackupList_.AddColumn(BackupOrder::kDate, Text(Caption::ColumnBackupDate), metrics().Scale(150));
  BackupList_.AddColumn(BackupOrder::kName, Text(Caption::ColumnBackupName), metrics().Scale(230));
  BackupList_.AddColumn(BackupOrder::kSize, Text(Caption::ColumnBackupSize), metrics().Scale(100));
  BackupList_.AlignRight(BackupOrder::kSize);
  AccessKeys keys;
  cmdRestore_.Create(env_, hwnd(), IDC_cmdRestore, keys.Add(Text(Caption::RestoreBackup)));
  cmdClean_.Create(env_, hwnd(), IDC_cmdClean, keys.Add(Text(Caption::Delete)));
  cmdOk_.Create(env_, hwnd(), IDCANCEL, Text(Caption::Cancel));
  cmdHelp_.Create(env_, hwnd(), IDC_cmdHelp, keys.Add(Text(Caption::Help)));
  Load();
}

void frmBackup::Load() {
  const std::string selected = SelectedKey();
  rows_ = backups_.List();
  ShowEmpty(rows_.empty());
  SetHeaderText(Text(Caption::BackupsIn) + " " + folder_ + ": " + std::to_string(rows_.size()));
  ShowRows(selected);
}

std::string frmBackup::SelectedKey() const {
  const int row = Selected();
  const bool any = row >= 0 && static_cast<std::size_t>(row) < rows_.size();
  return any ? rows_[static_cast<std::size_t>(row)].key : std::string();
}

void frmBackup::ShowRows(const std::string& selected) {
  order_.Sort(&rows_);
  BackupList_.SetItemCount(rows_.size());
  BackupList_.ShowSortArrow(order_.column(), order_.ascending());
  BackupList_.Select(-1, false);
  const auto found = std::ranges::find(rows_, selected, &BackupRow::key);
  const auto row = found == rows_.end() ? 0 : static_cast<int>(found - rows_.begin());
  if (!rows_.empty()) {
    BackupList_.FocusRow(row);
    BackupList_.Select(row, true);
  }
  BackupList_.Redraw();
  SelectionChanged();
}

void frmBackup::Sort(int column) {
  const std::string selected = SelectedKey();
  order_.SortBy(static_cast<BackupOrder::Column>(column));
  ShowRows(selected);
}

void frmBackup::SelectionChanged() {
  const int row = Selected();
  const bool chosen = !busy_ && row >= 0 && static_cast<std::size_t>(row) < rows_.size();
  cmdRestore_.Enable(chosen);
  cmdClean_.Enable(chosen);
}

void frmBackup::OnSize(Area area) {
  Arrange(area, BackupList_, {&cmdRestore_, &cmdClean_}, {&cmdHelp_, &cmdOk_});
  if (BackupList_.sized_by_user()) return;
  RECT client = {};
  GetClientRect(BackupList_.hwnd(), &client);
  const int left = client.right - BackupList_.ColumnWidth(BackupOrder::kDate) -
                   BackupList_.ColumnWidth(BackupOrder::kSize);
  BackupList_.SetColumnWidth(BackupOrder::kName, std::max(left, metrics().Scale(120)));
}

LRESULT frmBackup::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_CONTEXTMENU && reinterpret_cast<HWND>(wparam) == BackupList_.hwnd()) {
    ShowMenu({GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)});
    return 0;
  }
  return ListDialog::OnMessage(message, wparam, lparam);
}

LRESULT frmBackup::OnNotify(NMHDR* header) {
  if (const auto answer = BackupList_.Answer(header)) return *answer;
  if (header->hwndFrom != BackupList_.hwnd()) return 0;
  switch (header->code) {
    case LVN_ITEMCHANGED:
    case LVN_ODSTATECHANGED:
      SelectionChanged();
      return 0;
    case LVN_COLUMNCLICK:
      Sort(reinterpret_cast<NMLISTVIEW*>(header)->iSubItem);
      return 0;
    case NM_DBLCLK:
      OnCommand(IDC_cmdRestore);
      return 0;
    default:
      return 0;
  }
}

bool frmBackup::OnKey(WPARAM key) {
  if (key == VK_F5) return OnCommand(IDM_mnuRefresh);
  if (GetFocus() != BackupList_.hwnd()) return false;
  if (key == VK_DELETE) return OnCommand(IDC_cmdClean);
  return key == 'C' && GetKeyState(VK_CONTROL) < 0 && OnCommand(IDM_mnuCopyRow);
}

void frmBackup::ShowMenu(POINT at) {
  if (at.x == -1 && at.y == -1) {  // from the keyboard
    at = {metrics().Scale(40), metrics().Scale(40)};
    ClientToScreen(BackupList_.hwnd(), &at);
  }
  const MenuHandle menu(CreatePopupMenu());
  const auto append = [&](bool enabled, int id, const std::string& text) {
    Calls().Append(menu.get(), MF_STRING | (enabled ? MF_ENABLED : MF_GRAYED),
                   static_cast<UINT_PTR>(id), text);
  };
  const bool chosen = !SelectedKey().empty();
  const std::string copy = Text(Caption::MenuCopyRow);
  const std::string refresh = Text(Caption::MenuRefresh);
  AccessKeys keys({copy, refresh});
  append(chosen, IDC_cmdRestore, keys.Add(Text(Caption::RestoreBackup)));
  append(chosen, IDC_cmdClean, keys.Add(Text(Caption::Delete)));
  SetMenuDefaultItem(menu.get(), IDC_cmdRestore, FALSE);
  Calls().Append(menu.get(), MF_SEPARATOR, 0, {});
  append(chosen, IDM_mnuCopyRow, copy + "\tCtrl+C");
  append(true, IDM_mnuRefresh, refresh + "\tF5");
  TrackPopupMenu(menu.get(), TPM_RIGHTBUTTON, at.x, at.y, 0, hwnd(), nullptr);
}

void frmBackup::CopyRow() const {
  const int row = Selected();
  if (SelectedKey().empty()) return;
  const BackupRow& backup = rows_[static_cast<std::size_t>(row)];
  std::string line;
  for (const int column : {BackupOrder::kDate, BackupOrder::kName, BackupOrder::kSize}) {
    if (!line.empty()) line += '\t';
    line += Cell(backup, column);
  }
  static_cast<void>(CopyText(hwnd(), line));
}

std::string frmBackup::Cell(const BackupRow& backup, int column) const {
  if (column == BackupOrder::kDate) return clock_.GeneralDate(clock_.ToLocal(backup.modified));
  if (column == BackupOrder::kSize) return SizeText(env_.captions, backup.size);
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
    case IDM_mnuCopyRow:
      CopyRow();
      return true;
    case IDM_mnuRefresh:
      Load();
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
  const std::string text = RestoreText(env_.captions, outcome, result);
  if (outcome.ok() && result.failed.empty()) return ShowMessage(text, Text(Caption::Information));
  ShowMessage(text, Text(Caption::Error), MB_ICONERROR);
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
    ShowMessage(Text(Caption::BackupNotDeleted) + "\r\n" + ReasonText(env_.captions, deleted),
                Text(Caption::Error), MB_ICONERROR);
  }
}

}  // namespace scourwell
