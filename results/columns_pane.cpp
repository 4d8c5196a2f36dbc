// SPDX-License-Identifier: MIT

// The columns of the ResultsPane.
#include <algorithm>

#include "results/results_pane.h"
#include "scan/finding_texts.h"
#include "widgets/path_cell.h"

namespace scourwell {
namespace {

constexpr Caption kColumnCaptions[] = {Caption::ColumnHitType, Caption::ColumnHitSystem,
                                       Caption::ColumnHitDetails};
constexpr int kColumnPicture = 16;
constexpr char kResults[] = "Results";  // in what the program keeps
constexpr char kGrouped[] = "Grouped";
constexpr RemovalState kStates[] = {RemovalState::Removed, RemovalState::Gone,
                                    RemovalState::PendingRestart, RemovalState::Refused,
                                    RemovalState::Failed};

}  // namespace

void ResultsPane::CreateColumns() {
  hits_.Group(env_.kept && env_.kept->Get(kResults, kGrouped) == "True");
  const int boxes = metrics().Scale(16) + 2 * kColumnPicture * metrics().PictureFactor();
  const int type = metrics().WidestText(KindTexts(env_.captions)) + boxes;
  system_width_ = metrics().Scale(160);
  const int widths[] = {type, system_width_, metrics().Scale(200)};
  for (int i = 0; i < 3; ++i) SpyListView_.AddColumn(i, Text(kColumnCaptions[i]), widths[i]);
  system_width_ = SpyListView_.ColumnWidth(HitList::kSystem);
  details_width_ = SpyListView_.ColumnWidth(HitList::kDetails);
}

// There is nothing to say in this column before a removal.
void ResultsPane::ShowStates() {
  if (shows_states_ || !hits_.has_remarks()) return;
  shows_states_ = true;
  for (const RemovalState state : kStates) {
    const int width = SpyListView_.TextWidth(RemovalStateWord(env_.captions, state));
    needed_state_width_ = std::max(needed_state_width_, width + 4 * ListView::CellPadding());
  }
  SpyListView_.AddColumn(HitList::kState, Text(Caption::ColumnState), 0);
  state_width_ = SpyListView_.ColumnWidth(HitList::kState);
  FitColumns();
}

// What came of the rows gets what its words need, on a small screen less; so do the names of the
// spies as long as the places have more; the places take what is left. Each column does so until
// the user sets its width.
void ResultsPane::FitColumns() {
  if (SpyListView_.has_kept_widths()) return;
  RECT client = {};
  GetClientRect(SpyListView_.hwnd(), &client);
  if (shows_states_ && SpyListView_.ColumnWidth(HitList::kState) == state_width_) {
    SpyListView_.SetColumnWidth(HitList::kState,
                                std::min<int>(needed_state_width_, client.right * 3 / 10));
    state_width_ = SpyListView_.ColumnWidth(HitList::kState);
  }
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

// The selection goes: its row numbers name other rows now.
void ResultsPane::Sort(int column) {
  hits_.SortBy(static_cast<HitList::Column>(column));
  SpyListView_.Select(-1, false);
  SpyListView_.ShowSortArrow(column, hits_.ascending());
  SpyListView_.Redraw();
}

// The rows of a group share one name.
std::string ResultsPane::SpyText(std::size_t row) const {
  if (!hits_.grouped()) return hits_.Text(row, HitList::kSystem);
  const std::size_t size = hits_.GroupSize(row);
  if (size == 0) return {};
  return hits_.Text(row, HitList::kSystem) + " (" + std::to_string(size) + ")";
}

void ResultsPane::Group(bool grouped) {
  if (env_.kept) static_cast<void>(env_.kept->Set(kResults, kGrouped, grouped ? "True" : "False"));
  hits_.Group(grouped);
  needed_width_ = SpyListView_.NeededWidth(HitList::kSystem);
  FitColumns();
  SpyListView_.Select(-1, false);
  SpyListView_.Redraw();
}

// What is gone is grey, and a path that is cut keeps its end.
LRESULT ResultsPane::Draw(NMLVCUSTOMDRAW& draw) const {
  if (const auto answer = BeforeCells(draw)) return *answer;
  const auto row = static_cast<std::size_t>(draw.nmcd.dwItemSpec);
  if (row >= hits_.size()) return CDRF_DODEFAULT;
  const bool gone = hits_.row(row).gone();
  const COLORREF colour = GetSysColor(gone ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT);
  draw.clrText = colour;
  if (draw.iSubItem != HitList::kDetails) return CDRF_NEWFONT;
  DrawPathCell(SpyListView_, draw, hits_.Text(row, HitList::kDetails), colour);
  return CDRF_SKIPDEFAULT;
}

}  // namespace scourwell
