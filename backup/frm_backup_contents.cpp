// SPDX-License-Identifier: MIT
#include "backup/frm_backup_contents.h"

#include <algorithm>

#include "machine/counting.h"
#include "machine/reasons.h"
#include "scan/finding_texts.h"
#include "text/text.h"
#include "widgets/access_keys.h"
#include "widgets/path_cell.h"
#include "widgets/resource.h"

namespace scourwell {

frmBackupContents::frmBackupContents(const WindowEnv& env, const RestoreRun& run, std::string name,
                                     std::function<void()> help)
    : ListDialog(
          env, "frmBackupContents",
          {IDC_ContentsHeader, IDC_lblContentsHeading, IDC_lblContentsText, IDC_lblContentsEmpty}),
      run_(run),
      name_(std::move(name)),
      help_(std::move(help)),
      chosen_(run.AllButDoubtful()) {
  // What is refused would only fail.
  for (std::size_t i = 0; i < chosen_.size(); ++i) {
    order_.push_back(i);
    if (!Item(i).refused.ok()) chosen_[i] = false;
  }
}

SIZE frmBackupContents::FirstSize() const { return {metrics().Scale(740), metrics().Scale(430)}; }

SIZE frmBackupContents::SmallestSize() const {
  return {metrics().Scale(624), metrics().Scale(380)};
}

void frmBackupContents::OnCreate() {
  CreateHeader(name_, Text(Caption::NoComponentChecked));
  ContentsList_.on_check = [this](const auto& rows, bool checked) { Check(rows, checked); };
  ContentsList_.is_checked = [this](int row) {
    return chosen_[order_[static_cast<std::size_t>(row)]];
  };
  ContentsList_.row_count = [this] { return chosen_.size(); };
  ContentsList_.cell_text = [this](std::size_t row, int column) { return Cell(Item(row), column); };
  ContentsList_.Create(env_, hwnd(), IDC_ContentsList);
  ContentsList_.RememberWidths(env_, HelpTopic());
  ContentsList_.SetName(Title());
  const int type = metrics().WidestText(KindTexts(env_.captions)) + metrics().Scale(40);
  ContentsList_.AddColumn(kType, Text(Caption::ColumnHitType), type);
  ContentsList_.AddColumn(kSystem, Text(Caption::ColumnHitSystem), metrics().Scale(130));
  ContentsList_.AddColumn(kPlace, Text(Caption::ColumnHitDetails), metrics().Scale(200));
  ContentsList_.AddColumn(kSize, Text(Caption::ColumnBackupSize), metrics().Scale(70));
  ContentsList_.AlignRight(kSize);
  ContentsList_.AddColumn(kStatus, Text(Caption::ColumnStatus), metrics().Scale(80));
  AccessKeys keys;
  cmdCheckAll_.Create(env_, hwnd(), IDC_cmdCheckAll, keys.Add(Text(Caption::CheckAll)));
  cmdUnCheckAll_.Create(env_, hwnd(), IDC_cmdUnCheckAll, keys.Add(Text(Caption::UncheckAll)));
  cmdRestore_.Create(env_, hwnd(), IDC_cmdRestore, keys.Add(Text(Caption::RestoreBackup)));
  cmdCancel_.Create(env_, hwnd(), IDCANCEL, Text(Caption::Cancel));
  cmdHelp_.Create(env_, hwnd(), IDC_cmdHelp, keys.Add(Text(Caption::Help)));
  ContentsList_.SetItemCount(chosen_.size());
  if (!chosen_.empty()) ContentsList_.FocusRow(0);
  ShowEmpty(chosen_.empty());
  ShowCount();
}

void frmBackupContents::ShowCount() {
  const auto checked = std::count(chosen_.begin(), chosen_.end(), true);
  const std::string count =
      CountedText(env_.captions, static_cast<std::size_t>(checked), Caption::Checked);
  SetHeaderText(Text(run_.foreign() ? Caption::BackupMadeElsewhere : Caption::AskRestoreBackup) +
                " (" + count + ")");
  cmdRestore_.Enable(checked > 0);
}

void frmBackupContents::OnSize(Area area) {
  Arrange(area, ContentsList_, {&cmdCheckAll_, &cmdUnCheckAll_},
          {&cmdHelp_, &cmdCancel_, &cmdRestore_});
  if (ContentsList_.sized_by_user()) return;
  ContentsList_.FitColumns({kStatus, kSystem}, kPlace, metrics().Scale(130));
}

std::string frmBackupContents::Cell(const BackupItem& item, int column) const {
  switch (column) {
    case kType:
      return KindText(env_.captions, KindOf(item.object));
    case kSystem:
      return item.spy;
    case kPlace:
      return PlaceText(item.object);
    case kSize:
      return KindOf(item.object) == FindingKind::File ? SizeText(env_.captions, item.size)
                                                      : std::string();
    default:
      return Status(item);
  }
}

std::string frmBackupContents::Status(const BackupItem& item) const {
  if (!item.refused.ok()) {
    return Text(Caption::StateRefused) + ": " + ReasonText(env_.captions, item.refused);
  }
  if (item.state == ItemState::Same) return Text(Caption::ItemUnchanged);
  if (item.starts_program) return Text(Caption::ItemStartsProgram);
  return Text(item.state == ItemState::Missing ? Caption::ItemMissing : Caption::ItemDifferent);
}

// Sizes compare as such, all else as it reads. Equal items stay as they stood, and the focus stays
// on its item.
void frmBackupContents::Sort(int column) {
  const int focus = ContentsList_.Focused();
  const std::size_t focused = focus < 0 ? order_.size() : order_[static_cast<std::size_t>(focus)];
  ascending_ = column != sorted_by_ || !ascending_;
  sorted_by_ = column;
  std::vector<std::string> texts;
  for (const BackupItem& item : run_.items()) texts.push_back(Cell(item, column));
  const auto compare = [&](std::size_t a, std::size_t b) {
    if (column != kSize) return CompareNoCase(texts[a], texts[b]);
    const std::uint64_t sizes[] = {run_.items()[a].size, run_.items()[b].size};
    return sizes[0] < sizes[1] ? -1 : sizes[0] > sizes[1];
  };
  const auto before = [&](std::size_t a, std::size_t b) {
    return (ascending_ ? compare(a, b) : compare(b, a)) < 0;
  };
  for (auto row = order_.begin(); row != order_.end(); ++row) {
    std::rotate(std::upper_bound(order_.begin(), row, *row, before), row, row + 1);
  }
  ContentsList_.ShowSortArrow(column, ascending_);
  ContentsList_.Select(-1, false);
  const auto found = std::ranges::find(order_, focused);
  if (found != order_.end()) {
    ContentsList_.FocusRow(static_cast<int>(found - order_.begin()));
    ContentsList_.Select(static_cast<int>(found - order_.begin()), true);
  }
  ContentsList_.Redraw();
}

void frmBackupContents::Check(const std::vector<std::size_t>& rows, bool checked) {
  for (const std::size_t row : rows) {
    if (row < order_.size() && Item(row).refused.ok()) chosen_[order_[row]] = checked;
  }
  ContentsList_.Redraw();
  ShowCount();
}

void frmBackupContents::CheckAll(bool checked) {
  for (std::size_t row = 0; row < order_.size(); ++row) {
    chosen_[order_[row]] = checked && Item(row).refused.ok();
  }
  ContentsList_.Redraw();
  ShowCount();
}

bool frmBackupContents::OnCommand(int id) {
  switch (id) {
    case IDC_cmdCheckAll:
      CheckAll(true);
      return true;
    case IDC_cmdUnCheckAll:
      CheckAll(false);
      return true;
    case IDC_cmdRestore:
      confirmed_ = true;
      Close();
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

LRESULT frmBackupContents::OnNotify(NMHDR* header) {
  if (const auto answer = ContentsList_.Answer(header)) return *answer;
  if (header->hwndFrom != ContentsList_.hwnd()) return 0;
  if (header->code == LVN_COLUMNCLICK) {
    Sort(reinterpret_cast<NMLISTVIEW*>(header)->iSubItem);
    return 0;
  }
  if (header->code != NM_CUSTOMDRAW) return 0;
  const auto& draw = *reinterpret_cast<const NMLVCUSTOMDRAW*>(header);
  return DrawPathColumn(ContentsList_, draw, kPlace, chosen_.size(),
                        [&](std::size_t row) { return PlaceText(Item(row).object); });
}

}  // namespace scourwell
