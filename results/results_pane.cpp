// SPDX-License-Identifier: MIT
#include "results/results_pane.h"

#include <windowsx.h>

#include <algorithm>
#include <optional>
#include <unordered_set>

#include "scan/finding_texts.h"
#include "widgets/access_keys.h"
#include "widgets/image_list.h"
#include "widgets/layout.h"
#include "widgets/path_cell.h"
#include "widgets/resource.h"

namespace scourwell {
namespace {

constexpr Caption kColumnCaptions[] = {Caption::ColumnHitType, Caption::ColumnHitSystem,
                                       Caption::ColumnHitDetails};
constexpr int kPicture = 16;
constexpr RemovalState kStates[] = {RemovalState::Removed, RemovalState::Gone,
                                    RemovalState::PendingRestart, RemovalState::Refused,
                                    RemovalState::Failed};

}  // namespace

ResultsPane::ResultsPane(const WindowEnv& env, HitList& hits, const SpyCategories& categories,
                         Shell& shell)
    : Pane(env, "ScourwellResults"),
      hits_(hits),
      categories_(categories),
      shell_(shell),
      header_(env, HeaderPane::Size::Small, {IDC_lblResults, IDC_lblCount, 0}) {}

void ResultsPane::OnCreate() {
  header_.Create(hwnd(), IDC_ResultsHeader);
  header_.SetHeading(Text(Caption::DetectedComponents));
  // Made before the list, so that it lies above it.
  lblEmpty_.Create(env_, hwnd(), IDC_lblEmpty, Text(Caption::NothingFound), SS_CENTER);
  SpyListView_.on_check = [this](const auto& rows, bool checked) { Check(rows, checked); };
  SpyListView_.is_checked = [this](int row) {
    return hits_.row(static_cast<std::size_t>(row)).checked;
  };
  SpyListView_.row_count = [this] { return hits_.size(); };
  SpyListView_.cell_text = [this](std::size_t row, int column) {
    return hits_.Text(row, static_cast<HitList::Column>(column));
  };
  SpyListView_.row_image = [this](std::size_t row) {
    return KindIcon(KindOf(hits_.row(row).finding.object));
  };
  SpyListView_.row_tip = [this](std::size_t row) {
    const std::string state = hits_.Text(row, HitList::kState);
    return TipText(hits_.row(row).finding, categories_) + (state.empty() ? "" : " - " + state);
  };
  SpyListView_.Create(env_, hwnd(), IDC_SpyListView);
  images_ = LoadScaledImageList(env_, IDB_Kinds16, kPicture);
  SpyListView_.SetSmallImages(images_.get());
  CreateColumns();
  AccessKeys keys({Text(Caption::MenuScan), Text(Caption::MenuTools), Text(Caption::MenuHelp)});
  const auto make = [&](Button& button, int id, Caption caption) {
    button.Create(env_, hwnd(), id, keys.Add(Text(caption)));
  };
  make(cmdCheckAll_, IDC_cmdCheckAll, Caption::CheckAll);
  make(cmdUnCheckAll_, IDC_cmdUnCheckAll, Caption::UncheckAll);
  make(cmdExclude_, IDC_cmdExclude, Caption::Exclude);
  make(cmdBackup_, IDC_cmdBackup, Caption::Backup);
  make(cmdViewLog_, IDC_cmdViewLog, Caption::ViewLog);
  make(cmdDelete_, IDC_cmdDelete, Caption::Delete);
  make(cmdContinue_, IDC_cmdContinue, Caption::Continue);
  make(cmdClose_, IDC_cmdCloseResults, Caption::Cancel);
}

void ResultsPane::CreateColumns() {
  const int boxes = metrics().Scale(16) + 2 * kPicture * metrics().PictureFactor();
  const int type = metrics().WidestText(KindTexts(env_.captions)) + boxes;
  system_width_ = metrics().Scale(160);
  const int widths[] = {type, system_width_, metrics().Scale(200)};
  for (int i = 0; i < 3; ++i) SpyListView_.AddColumn(i, Text(kColumnCaptions[i]), widths[i]);
  system_width_ = SpyListView_.ColumnWidth(HitList::kSystem);
  details_width_ = SpyListView_.ColumnWidth(HitList::kDetails);
}

void ResultsPane::OnSize(Area area) {
  {
    Layout layout;
    layout.Place(header_.hwnd(), area.CutTop(header_.Height()));
    Area inner = area.Shrunk(metrics().Margin(), metrics().Margin());
    Area buttons = inner.CutBottom(metrics().ButtonHeight());
    inner.CutBottom(metrics().Gap());
    Area actions = inner.CutBottom(metrics().ButtonHeight());
    inner.CutBottom(metrics().Gap());
    layout.Place(SpyListView_, inner);
    const int line = metrics().LineHeight();
    Area empty = inner.Shrunk(metrics().Scale(4), inner.height() / 2 - line);
    layout.Place(lblEmpty_, {empty.left, empty.top, empty.right, empty.top + 2 * line});
    const int gap = metrics().Gap();
    for (const Button* button : {&cmdCheckAll_, &cmdUnCheckAll_}) {
      layout.Place(*button, actions.CutLeft(button->width()));
      actions.CutLeft(gap);
    }
    for (const Button* button : {&cmdBackup_, &cmdExclude_}) {
      layout.Place(*button, actions.CutRight(button->width()));
      actions.CutRight(gap);
    }
    layout.Place(cmdViewLog_, buttons.CutLeft(cmdViewLog_.width()));
    for (const Button* button : {&cmdClose_, &cmdContinue_, &cmdDelete_}) {
      layout.Place(*button, buttons.CutRight(button->width()));
      buttons.CutRight(gap);
    }
  }
  FitColumns();
}

// There is nothing to say in this column before a removal.
void ResultsPane::ShowStates() {
  if (shows_states_ || !hits_.settled()) return;
  shows_states_ = true;
  int width = 0;
  for (const RemovalState state : kStates) {
    width = std::max(width, SpyListView_.TextWidth(RemovalStateWord(env_.captions, state)));
  }
  SpyListView_.AddColumn(HitList::kState, Text(Caption::ColumnState),
                         width + 4 * ListView::CellPadding());
  FitColumns();
}

int ResultsPane::SystemWidth() const {
  int width = 0;
  std::unordered_set<std::string> measured;
  for (std::size_t row = 0; row < hits_.size(); ++row) {
    std::string spy = hits_.Text(row, HitList::kSystem);
    if (!measured.insert(spy).second) continue;
    width = std::max(width, SpyListView_.TextWidth(spy));
  }
  return width + 4 * ListView::CellPadding();
}

// The names of the spies get what they need as long as the places have more; the places take what
// is left. Each column does so until the user sets its width.
void ResultsPane::FitColumns() {
  RECT client = {};
  GetClientRect(SpyListView_.hwnd(), &client);
  const int left = client.right - SpyListView_.ColumnWidth(HitList::kType) -
                   (shows_states_ ? SpyListView_.ColumnWidth(HitList::kState) : 0);
  int system = SpyListView_.ColumnWidth(HitList::kSystem);
  if (system == system_width_) {
    system = system_width_ =
        std::clamp(needed_width_, metrics().Scale(90), std::max(left * 2 / 5, metrics().Scale(90)));
    SpyListView_.SetColumnWidth(HitList::kSystem, system);
  }
  if (SpyListView_.ColumnWidth(HitList::kDetails) != details_width_) return;
  details_width_ = std::max(left - system, metrics().Scale(120));
  SpyListView_.SetColumnWidth(HitList::kDetails, details_width_);
}

void ResultsPane::Refresh() {
  SpyListView_.SetItemCount(hits_.size());
  needed_width_ = SystemWidth();
  SpyListView_.ShowSortArrow(hits_.sorted() ? hits_.sort_column() : -1, hits_.ascending());
  SpyListView_.Select(-1, false);  // its row numbers may name other rows now
  if (!hits_.empty()) SpyListView_.FocusRow(0);
  // A list that was emptied says nothing about the computer.
  lblEmpty_.Show(hits_.empty() && hits_.counters().Total() == 0);
  FitColumns();
  ShowStates();
  ShowCount();
}

void ResultsPane::SetBusy(bool busy, const std::string& status) {
  busy_ = busy;
  SpyListView_.Enable(!busy);
  ShowStates();
  SpyListView_.Redraw();
  ShowCount();
  if (busy) header_.SetText(status);
}

void ResultsPane::EnableButtons() {
  const bool any = !busy_ && !hits_.empty();
  for (const Button* button : {&cmdCheckAll_, &cmdUnCheckAll_, &cmdDelete_}) button->Enable(any);
  const bool checked = any && hits_.checked_count() > 0;
  for (const Button* button : {&cmdExclude_, &cmdBackup_}) button->Enable(checked);
  cmdViewLog_.Enable(!busy_ && has_log_);
  for (const Button* button : {&cmdContinue_, &cmdClose_}) button->Enable(!busy_);
}

void ResultsPane::ShowCount() {
  EnableButtons();
  const std::size_t checked = hits_.checked_count();
  header_.SetText(Text(Caption::ComponentsInList) + ": " + std::to_string(hits_.size()) +
                  (checked ? ", " + std::to_string(checked) + " " + Text(Caption::Checked) : ""));
}

LRESULT ResultsPane::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_CONTEXTMENU && reinterpret_cast<HWND>(wparam) == SpyListView_.hwnd()) {
    ShowMenu({GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)});
    return 0;
  }
  if (message == WM_CTLCOLORSTATIC && reinterpret_cast<HWND>(lparam) == lblEmpty_.hwnd()) {
    SetBkColor(reinterpret_cast<HDC>(wparam), GetSysColor(COLOR_WINDOW));
    SetTextColor(reinterpret_cast<HDC>(wparam), GetSysColor(COLOR_WINDOWTEXT));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
  }
  return Pane::OnMessage(message, wparam, lparam);
}

bool ResultsPane::OnCommand(int id) {
  switch (id) {
    case IDC_cmdCheckAll:
    case IDM_mnuCheckAll:
      CheckAll(true);
      return true;
    case IDC_cmdUnCheckAll:
    case IDM_mnuUncheckAll:
      CheckAll(false);
      return true;
    case IDM_mnuShowProperties:
      env_.log.Trap("mnuShowProperties - Scan Spy", [&] { return mnuShowProperties(); });
      return true;
    default:
      return Pane::OnCommand(id);
  }
}

LRESULT ResultsPane::OnNotify(NMHDR* header) {
  if (const auto answer = SpyListView_.Answer(header)) return *answer;
  if (header->hwndFrom != SpyListView_.hwnd()) return 0;
  switch (header->code) {
    case LVN_COLUMNCLICK:
      Sort(reinterpret_cast<NMLISTVIEW*>(header)->iSubItem);
      return 0;
    case NM_CUSTOMDRAW:
      return Draw(*reinterpret_cast<NMLVCUSTOMDRAW*>(header));
    default:
      return 0;
  }
}

// What is gone is grey, and a path that is cut keeps its end.
LRESULT ResultsPane::Draw(NMLVCUSTOMDRAW& draw) const {
  if (const auto answer = BeforeCells(draw)) return *answer;
  const auto row = static_cast<std::size_t>(draw.nmcd.dwItemSpec);
  if (row >= hits_.size()) return CDRF_DODEFAULT;
  std::optional<COLORREF> colour;
  if (hits_.row(row).gone()) colour = draw.clrText = GetSysColor(COLOR_GRAYTEXT);
  if (draw.iSubItem != HitList::kDetails) return CDRF_DODEFAULT;
  DrawPathCell(SpyListView_, draw, hits_.Text(row, HitList::kDetails), colour);
  return CDRF_SKIPDEFAULT;
}

void ResultsPane::Check(const std::vector<std::size_t>& rows, bool checked) {
  for (const std::size_t row : rows) {
    if (row < hits_.size()) hits_.SetChecked(row, checked);
  }
  SpyListView_.Redraw();
  ShowCount();
}

void ResultsPane::CheckAll(bool checked) {
  hits_.CheckAll(checked);
  SpyListView_.Redraw();
  ShowCount();
}

// The selection goes: its row numbers name other rows now.
void ResultsPane::Sort(int column) {
  hits_.SortBy(static_cast<HitList::Column>(column));
  SpyListView_.Select(-1, false);
  SpyListView_.ShowSortArrow(column, hits_.ascending());
  SpyListView_.Redraw();
}

void ResultsPane::ShowMenu(POINT at) {
  if (at.x == -1 && at.y == -1) {  // from the keyboard
    at = {metrics().Scale(40), metrics().Scale(40)};
    ClientToScreen(SpyListView_.hwnd(), &at);
  }
  const MenuHandle menu(CreatePopupMenu());
  const UINT rows = hits_.empty() ? MF_GRAYED : MF_ENABLED;
  const UINT properties = SelectedPath() ? MF_ENABLED : MF_GRAYED;
  Calls().Append(menu.get(), MF_STRING | rows, IDM_mnuCheckAll, Text(Caption::MenuCheckAll));
  Calls().Append(menu.get(), MF_STRING | rows, IDM_mnuUncheckAll, Text(Caption::MenuUncheckAll));
  Calls().Append(menu.get(), MF_SEPARATOR, 0, {});
  Calls().Append(menu.get(), MF_STRING | properties, IDM_mnuShowProperties,
                 Text(Caption::MenuShowProperties));
  TrackPopupMenu(menu.get(), TPM_RIGHTBUTTON, at.x, at.y, 0, hwnd(), nullptr);
}

// Only things that lie on a disk have a property sheet.
const std::string* ResultsPane::SelectedPath() const {
  const int row = SpyListView_.NextSelected(-1);
  return row < 0 ? nullptr : PathOnDisk(hits_.row(static_cast<std::size_t>(row)).finding.object);
}

Outcome ResultsPane::mnuShowProperties() {
  const std::string* path = SelectedPath();
  return path ? shell_.ShowProperties(*path) : Outcome();
}

HWND ResultsPane::FirstFocus() const { return SpyListView_.hwnd(); }

}  // namespace scourwell
