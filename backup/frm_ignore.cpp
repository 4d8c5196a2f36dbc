// SPDX-License-Identifier: MIT
#include "backup/frm_ignore.h"

#include <algorithm>

#include "machine/counting.h"
#include "machine/reasons.h"
#include "scan/finding.h"
#include "scan/finding_texts.h"
#include "widgets/access_keys.h"
#include "widgets/message_box.h"
#include "widgets/path_cell.h"
#include "widgets/resource.h"

namespace scourwell {

frmIgnore::frmIgnore(const WindowEnv& env, IgnoreList& ignore, std::function<void()> help)
    : ListDialog(env, "frmIgnore",
                 {IDC_IgnoreHeader, IDC_lblIgnoreHeading, IDC_lblIgnoreCount, IDC_lblIgnoreEmpty}),
      ignore_(ignore),
      help_(std::move(help)) {}

SIZE frmIgnore::FirstSize() const { return {metrics().Scale(580), metrics().Scale(360)}; }

void frmIgnore::OnCreate() {
  CreateHeader(Text(Caption::IgnoreList), Text(Caption::NothingExcluded));
  IgnoreListView_.on_check = [this](const auto& rows, bool checked) { Check(rows, checked); };
  IgnoreListView_.is_checked = [this](int row) { return checked_[static_cast<std::size_t>(row)]; };
  IgnoreListView_.row_count = [this] { return records_.size(); };
  IgnoreListView_.cell_text = [this](std::size_t row, int column) { return Field(row, column); };
  IgnoreListView_.Create(env_, hwnd(), IDC_IgnoreListView);
  IgnoreListView_.RememberWidths(env_, HelpTopic());
  IgnoreListView_.SetName(Title());
  const int type = metrics().WidestText(KindTexts(env_.captions)) + metrics().Scale(40);
  IgnoreListView_.AddColumn(kType, Text(Caption::ColumnIgnoredType), type);
  IgnoreListView_.AddColumn(kSystem, Text(Caption::ColumnIgnoredSystem), metrics().Scale(130));
  IgnoreListView_.AddColumn(kDetails, Text(Caption::ColumnIgnoredDetails), metrics().Scale(250));
  AccessKeys keys;
  cmdCheckAll_.Create(env_, hwnd(), IDC_cmdCheckAll, keys.Add(Text(Caption::CheckAll)));
  cmdUnCheckAll_.Create(env_, hwnd(), IDC_cmdUnCheckAll, keys.Add(Text(Caption::UncheckAll)));
  CmdRemove_.Create(env_, hwnd(), IDC_CmdRemove, keys.Add(Text(Caption::StopIgnoring)));
  cmdCancel_.Create(env_, hwnd(), IDCANCEL, Text(Caption::Cancel));
  cmdHelp_.Create(env_, hwnd(), IDC_cmdHelp, keys.Add(Text(Caption::Help)));
  Load();
}

void frmIgnore::Load() {
  const Outcome loaded =
      env_.log.TrapOutcome("CmdRemove_Click", [&] { return ignore_.Load(&records_); });
  SetEmptyText(Text(loaded.ok() ? Caption::NothingExcluded : Caption::IgnoreListNotRead));
  checked_.assign(records_.size(), false);
  IgnoreListView_.SetItemCount(records_.size());
  if (!records_.empty()) IgnoreListView_.FocusRow(0);
  ShowEmpty(records_.empty());
  for (const Button* button : {&cmdCheckAll_, &cmdUnCheckAll_}) button->Enable(!records_.empty());
  IgnoreListView_.Redraw();
  ShowCount();
}

void frmIgnore::ShowCount() {
  const auto checked = static_cast<std::size_t>(std::count(checked_.begin(), checked_.end(), true));
  SetHeaderText(Text(Caption::ExcludedComponents) + " " + std::to_string(records_.size()) +
                (checked > 0 ? ", " + CountedText(env_.captions, checked, Caption::Checked) : ""));
  CmdRemove_.Enable(checked > 0);
}

void frmIgnore::OnSize(Area area) {
  Arrange(area, IgnoreListView_, {&cmdCheckAll_, &cmdUnCheckAll_},
          {&cmdHelp_, &cmdCancel_, &CmdRemove_});
  if (IgnoreListView_.sized_by_user()) return;
  RECT client = {};
  GetClientRect(IgnoreListView_.hwnd(), &client);
  const int left =
      client.right - IgnoreListView_.ColumnWidth(kType) - IgnoreListView_.ColumnWidth(kSystem);
  IgnoreListView_.SetColumnWidth(kDetails, std::max(left, metrics().Scale(120)));
}

bool frmIgnore::OnCommand(int id) {
  switch (id) {
    case IDC_cmdCheckAll:
      CheckAll(true);
      return true;
    case IDC_cmdUnCheckAll:
      CheckAll(false);
      return true;
    case IDC_CmdRemove:
      CmdRemove_Click();
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

void frmIgnore::CmdRemove_Click() {
  std::vector<IgnoreRecord> kept;
  for (std::size_t i = 0; i < records_.size(); ++i) {
    if (!checked_[i]) kept.push_back(records_[i]);
  }
  const Outcome removed =
      env_.log.TrapOutcome("CmdRemove_Click", [&] { return ignore_.Keep(kept); });
  Load();
  if (!removed.ok()) {
    ShowMessage(Text(Caption::IgnoreListNotChanged) + "\r\n" + ReasonText(env_.captions, removed),
                Text(Caption::Error), MB_ICONERROR);
  }
}

void frmIgnore::Check(const std::vector<std::size_t>& rows, bool checked) {
  for (const std::size_t row : rows) {
    if (row < checked_.size()) checked_[row] = checked;
  }
  IgnoreListView_.Redraw();
  ShowCount();
}

void frmIgnore::CheckAll(bool checked) {
  checked_.assign(checked_.size(), checked);
  IgnoreListView_.Redraw();
  ShowCount();
}

LRESULT frmIgnore::OnNotify(NMHDR* header) {
  if (const auto answer = IgnoreListView_.Answer(header)) return *answer;
  if (header->hwndFrom != IgnoreListView_.hwnd()) return 0;
  if (header->code == NM_CUSTOMDRAW) {
    const auto& draw = *reinterpret_cast<const NMLVCUSTOMDRAW*>(header);
    return DrawPathColumn(IgnoreListView_, draw, kDetails, records_.size(),
                          [&](std::size_t row) { return records_[row].details; });
  }
  return 0;
}

std::string frmIgnore::Field(std::size_t row, int column) const {
  const IgnoreRecord& record = records_[row];
  if (column == kSystem) return record.system;
  if (column == kDetails) return record.details;
  const std::optional<FindingKind> kind = KindOfWord(record.kind);
  return kind ? KindText(env_.captions, *kind) : record.kind;
}

}  // namespace scourwell
