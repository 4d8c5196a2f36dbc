// SPDX-License-Identifier: MIT
#include "widgets/path_cell.h"

#include "text/shortened.h"

namespace scourwell {
namespace {

// The colours of a row: full-row selection, grey while the list has no focus.
struct RowColours {
  int back;
  int text;
};

RowColours ColoursOf(const ListView& list, int row) {
  if (!list.IsSelected(row)) return {COLOR_WINDOW, COLOR_WINDOWTEXT};
  if (GetFocus() == list.hwnd()) return {COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT};
  return {COLOR_BTNFACE, COLOR_BTNTEXT};
}

}  // namespace

std::optional<LRESULT> BeforeCells(const NMLVCUSTOMDRAW& draw) {
  switch (draw.nmcd.dwDrawStage) {
    case CDDS_PREPAINT:
      return CDRF_NOTIFYITEMDRAW;
    case CDDS_ITEMPREPAINT:
      return CDRF_NOTIFYSUBITEMDRAW;
    case CDDS_ITEMPREPAINT | CDDS_SUBITEM:
      return {};
    default:
      return CDRF_DODEFAULT;
  }
}

void DrawPathCell(const ListView& list, const NMLVCUSTOMDRAW& draw, const std::string& path,
                  std::optional<COLORREF> text) {
  const auto row = static_cast<int>(draw.nmcd.dwItemSpec);
  const RowColours colours = ColoursOf(list, row);
  RECT cell = list.CellArea(row, draw.iSubItem);
  FillRect(draw.nmcd.hdc, &cell, GetSysColorBrush(colours.back));
  InflateRect(&cell, -list.CellPadding(), 0);
  SetBkMode(draw.nmcd.hdc, TRANSPARENT);
  const bool plain = text && colours.back == COLOR_WINDOW;
  SetTextColor(draw.nmcd.hdc, plain ? *text : GetSysColor(colours.text));
  const std::string shown = ShortenedPath(path, [&](const std::string& tried) {
    return Calls().Extent(draw.nmcd.hdc, tried).cx <= cell.right - cell.left;
  });
  Calls().Draw(draw.nmcd.hdc, shown, &cell,
               DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

LRESULT DrawPathColumn(const ListView& list, const NMLVCUSTOMDRAW& draw, int column,
                       std::size_t rows, const std::function<std::string(std::size_t row)>& path) {
  if (const auto answer = BeforeCells(draw)) return *answer;
  const auto row = static_cast<std::size_t>(draw.nmcd.dwItemSpec);
  if (draw.iSubItem != column || row >= rows) return CDRF_DODEFAULT;
  DrawPathCell(list, draw, path(row));
  return CDRF_SKIPDEFAULT;
}

}  // namespace scourwell
