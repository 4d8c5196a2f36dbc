// SPDX-License-Identifier: MIT
#include "results/results_pane.h"

#include <windowsx.h>

#include "machine/counting.h"
#include "scan/finding_texts.h"
#include "widgets/access_keys.h"
#include "widgets/button_rows.h"
#include "widgets/image_list.h"
#include "widgets/layout.h"
#include "widgets/resource.h"

namespace scourwell {
namespace {

constexpr int kKindPicture = 16;

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
    return column == HitList::kSystem ? SpyText(row)
                                      : hits_.Text(row, static_cast<HitList::Column>(column));
  };
  SpyListView_.row_image = [this](std::size_t row) {
    return KindIcon(KindOf(hits_.row(row).finding.object));
  };
  SpyListView_.row_tip = [this](std::size_t row) {
    const std::string state = hits_.Text(row, HitList::kState);
    return TipText(hits_.row(row).finding, categories_) + (state.empty() ? "" : " - " + state);
  };
  SpyListView_.Create(env_, hwnd(), IDC_SpyListView);
  SpyListView_.RememberWidths(env_, "SpyListView");
  SpyListView_.SetName(Text(Caption::DetectedComponents));
  images_ = LoadScaledImageList(env_, IDB_Kinds16, kKindPicture);
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
  make(cmdReport_, IDC_cmdReport, Caption::SaveReport);
  make(cmdDelete_, IDC_cmdDelete, Caption::Delete);
  make(cmdContinue_, IDC_cmdContinue, Caption::Continue);
  make(cmdClose_, IDC_cmdCloseResults, Caption::Cancel);
}

void ResultsPane::OnSize(Area area) {
  {
    Layout layout;
    layout.Place(header_.hwnd(), area.CutTop(header_.Height()));
    Area inner = area.Shrunk(metrics().Margin(), metrics().Margin());
    const Button* const below_left[] = {&cmdViewLog_, &cmdReport_};
    const Button* const below_right[] = {&cmdClose_, &cmdContinue_, &cmdDelete_};
    PlaceButtons(layout, metrics(), &inner, below_left, below_right);
    inner.CutBottom(metrics().Gap());
    const Button* const left[] = {&cmdCheckAll_, &cmdUnCheckAll_};
    const Button* const right[] = {&cmdBackup_, &cmdExclude_};
    PlaceButtons(layout, metrics(), &inner, left, right);
    inner.CutBottom(metrics().Gap());
    layout.Place(SpyListView_, inner);
    const int line = metrics().LineHeight();
    Area empty = inner.Shrunk(metrics().Scale(4), inner.height() / 2 - line);
    layout.Place(lblEmpty_, {empty.left, empty.top, empty.right, empty.top + 2 * line});
  }
  FitColumns();
}

void ResultsPane::Refresh() {
  SpyListView_.SetItemCount(hits_.size());
  needed_width_ = SpyListView_.NeededWidth(HitList::kSystem);
  SpyListView_.ShowSortArrow(hits_.sorted() ? hits_.sort_column() : -1, hits_.ascending());
  SpyListView_.Select(-1, false);  // its row numbers may name other rows now
  if (!hits_.empty()) SpyListView_.FocusRow(0);
  ShowEmpty();
  FitColumns();
  ShowStates();
  ShowCount();
}

// A list that was emptied says nothing about the computer.
void ResultsPane::ShowEmpty() {
  const std::size_t excluded = hits_.excluded();
  lblEmpty_.SetText(excluded > 0 ? Text(Caption::ScanAllExcluded) + " " + std::to_string(excluded)
                                 : Text(Caption::NothingFound));
  lblEmpty_.Show(hits_.empty() && (excluded > 0 || hits_.counters().Total() == 0));
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
  cmdReport_.Enable(!busy_);
  for (const Button* button : {&cmdContinue_, &cmdClose_}) button->Enable(!busy_);
}

void ResultsPane::ShowCount() {
  EnableButtons();
  const auto part = [&](std::size_t count, Caption caption) {
    return count ? ", " + CountedText(env_.captions, count, caption) : std::string();
  };
  header_.SetText(Text(Caption::ComponentsInList) + ": " + std::to_string(hits_.size()) +
                  part(hits_.checked_count(), Caption::Checked) +
                  part(hits_.excluded(), Caption::Excluded));
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
    default:
      return OnMenuCommand(id) || Pane::OnCommand(id);
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

HWND ResultsPane::FirstFocus() const { return SpyListView_.hwnd(); }

}  // namespace scourwell
