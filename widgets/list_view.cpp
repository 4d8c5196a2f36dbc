// SPDX-License-Identifier: MIT
#include "widgets/list_view.h"

#include <algorithm>

namespace scourwell {
namespace {

// Arrows of the header, which only common controls 6 draws.
constexpr int kSortUp = 0x0400;
constexpr int kSortDown = 0x0200;

}  // namespace

void ListView::AddColumn(int index, const std::string& text, int width) const {
  Controls().AddColumn(hwnd(), index, text, std::max(width, TextWidth(text) + 4 * CellPadding()));
}

void ListView::ShowSortArrow(int column, bool ascending) const {
  const auto header = reinterpret_cast<HWND>(Send(LVM_GETHEADER));
  const auto count = static_cast<int>(Calls().Send(header, HDM_GETITEMCOUNT, 0, 0));
  for (int i = 0; i < count; ++i) {
    HDITEMW item = {};
    item.mask = HDI_FORMAT;
    const auto place = reinterpret_cast<LPARAM>(&item);
    Calls().Send(header, Controls().header_get, static_cast<WPARAM>(i), place);
    item.fmt &= ~(kSortUp | kSortDown);
    if (i == column) item.fmt |= ascending ? kSortUp : kSortDown;
    Calls().Send(header, Controls().header_set, static_cast<WPARAM>(i), place);
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
  LVITEMW item = {};
  item.stateMask = LVIS_SELECTED;
  item.state = selected ? LVIS_SELECTED : 0u;
  Default(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void ListView::FocusRow(int row) const {
  LVITEMW item = {};
  item.stateMask = item.state = LVIS_FOCUSED;
  Default(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

}  // namespace scourwell
