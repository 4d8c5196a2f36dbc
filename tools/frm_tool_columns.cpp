// SPDX-License-Identifier: MIT

// The columns of a frmTool.
#include <algorithm>

#include "text/unicode.h"
#include "tools/frm_tool.h"
#include "widgets/path_cell.h"
#include "widgets/spy_colour.h"

namespace scourwell {
namespace {

constexpr std::size_t kLongestCell = 200;  // of a tip

}  // namespace

// A column is as wide as its rows ask for, within a half more than it begins with; it stays so
// while a filter hides some. Paths, which are shortened well, bring no sideways bar by that.
void frmTool::FitColumns() const {
  if (list_.sized_by_user() || view_->size() == 0 || view_->size() != Table().size()) return;
  const auto columns = Columns();
  RECT client = {};
  GetClientRect(list_.hwnd(), &client);
  int left = client.right;
  for (const bool path : {false, true}) {
    for (int i = 0; i < static_cast<int>(columns.size()); ++i) {
      const Column& column = columns[static_cast<std::size_t>(i)];
      if (column.path != path) continue;
      const int first = metrics().Scale(column.width);
      const int most = path && left >= first ? left : first * 3 / 2;
      const int width = std::min(NeededWidth(i), most);
      if (width != list_.ColumnWidth(i)) list_.SetColumnWidth(i, width);
      left -= width;
    }
  }
}

int frmTool::NeededWidth(int column) const {
  int width = list_.NeededWidth(column);
  for (const std::string& word : WordsOf(column)) {
    width = std::max(width, list_.TextWidth(word) + 4 * ReportListView::CellPadding());
  }
  return width;
}

// What narrow columns cut off, the tip has whole.
std::string frmTool::TipOf(std::size_t row) const {
  std::string tip;
  for (int column = 0; column < Table().columns(); ++column) {
    const std::string& cell = Table().Cell(row, column);
    const int needed = list_.TextWidth(cell) + 2 * ReportListView::CellPadding();
    if (needed <= list_.ColumnWidth(column)) continue;
    if (!tip.empty()) tip += " | ";
    tip += WholeCharacters(cell, kLongestCell);
  }
  return tip;
}

LRESULT frmTool::Draw(NMLVCUSTOMDRAW* draw) const {
  if (const auto answer = BeforeCells(*draw)) return *answer;
  const auto index = static_cast<std::size_t>(draw->nmcd.dwItemSpec);
  if (!IsRow(index)) return CDRF_DODEFAULT;
  const std::size_t row = view_->Row(index);
  const COLORREF colour = IsMarked(row) ? SpyColour() : GetSysColor(COLOR_WINDOWTEXT);
  draw->clrText = colour;
  const auto column = static_cast<std::size_t>(draw->iSubItem);
  if (column == 0 || !Columns()[column].path) return CDRF_NEWFONT;
  DrawPathCell(list_, *draw, Table().Cell(row, draw->iSubItem), colour);
  return CDRF_SKIPDEFAULT;
}

}  // namespace scourwell
