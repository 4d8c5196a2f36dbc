#include "widgets/list_view.h"

#include <algorithm>

namespace scourwell {
namespace {

// Arrows of the header, which only common controls 6 draws.
constexpr int kSortUp = 0x0400;
constexpr int kSortDown = 0x0200;

}  // namespace

void ListView::AddColumn(int index, const std::string& text, int width) const {
  LVCOLUMNA column = {};
  column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
  column.pszText = const_cast<char*>(text.c_str());
  column.cx = std::max(width, TextWidth(text) + 4 * CellPadding());
  column.iSubItem = index;
  Send(LVM_INSERTCOLUMNA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column));
}

void ListView::ShowSortArrow(int column, bool ascending) const {
  const auto header = reinterpret_cast<HWND>(Send(LVM_GETHEADER));
  const auto count = static_cast<int>(SendMessageA(header, HDM_GETITEMCOUNT, 0, 0));
  for (int i = 0; i < count; ++i) {
    HDITEMA item = {};
    item.mask = HDI_FORMAT;
    SendMessageA(header, HDM_GETITEMA, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
    item.fmt &= ~(kSortUp | kSortDown);
    if (i == column) item.fmt |= ascending ? kSortUp : kSortDown;
    SendMessageA(header, HDM_SETITEMA, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
  }
}

void ListView::SetRowHeight(int height) {
  ImageListHandle blank(ImageList_Create(1, height, ILC_COLOR, 0, 1));
  SetSmallImages(blank.get());
  blank_ = std::move(blank);
}

RECT ListView::CellArea(int row, int column) const {
  RECT area = {};
  area.top = column;
  area.left = LVIR_BOUNDS;
  Send(LVM_GETSUBITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
  return area;
}

void ListView::Select(int row, bool selected) const {
  LVITEMA item = {};
  item.stateMask = LVIS_SELECTED;
  item.state = selected ? LVIS_SELECTED : 0u;
  Default(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void ListView::FocusRow(int row) const {
  LVITEMA item = {};
  item.stateMask = item.state = LVIS_FOCUSED;
  Default(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

}  // namespace scourwell
