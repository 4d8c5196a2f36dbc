// SPDX-License-Identifier: MIT
#include "widgets/list_view.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

#include "widgets/window_place.h"

namespace scourwell {
namespace {

// Arrows of the header, which only common controls 6 draws.
constexpr int kSortUp = 0x0400;
constexpr int kSortDown = 0x0200;
// A divider was dragged or double-clicked, in either form.
constexpr UINT kSized[] = {HDN_ENDTRACKA, HDN_ENDTRACKW, HDN_DIVIDERDBLCLICKA,
                           HDN_DIVIDERDBLCLICKW};

}  // namespace

void ListView::RememberWidths(const WindowEnv& env, const char* list) {
  env_ = &env;
  list_ = list;
  kept_ = KeptWidths(env, list);
}

void ListView::AddColumn(int index, const std::string& text, int width) {
  const auto at = static_cast<std::size_t>(index);
  const int kept = at < kept_.size() ? kept_[at] : 0;
  heads_.resize(std::max(heads_.size(), at + 1));
  heads_[at] = TextWidth(text) + 4 * CellPadding();
  Controls().AddColumn(hwnd(), index, text, kept > 0 ? kept : std::max(width, heads_[at]));
}

// Rows often say the same.
int ListView::NeededWidth(int column) const {
  int width = 0;
  std::unordered_set<std::string> measured;
  for (std::size_t row = 0; row < row_count(); ++row) {
    std::string text = CellText(row, column);
    if (measured.contains(text)) continue;
    width = std::max(width, TextWidth(text));
    measured.insert(std::move(text));
  }
  return std::max(width + 4 * CellPadding(), heads_[static_cast<std::size_t>(column)]);
}

void ListView::FitColumns(std::initializer_list<int> columns, int rest, int least) const {
  RECT client = {};
  GetClientRect(hwnd(), &client);
  int left = client.right;
  for (int i = 0; i < static_cast<int>(heads_.size()); ++i) {
    if (i != rest && std::ranges::find(columns, i) == columns.end()) left -= ColumnWidth(i);
  }
  const int most = left * 2 / 5;
  int kept = least;  // for those that come later
  for (const int column : columns) kept += heads_[static_cast<std::size_t>(column)];
  for (const int column : columns) {
    const int head = heads_[static_cast<std::size_t>(column)];
    kept -= head;
    const int width =
        std::clamp(NeededWidth(column), head, std::max(head, std::min(most, left - kept)));
    SetColumnWidth(column, width);
    left -= width;
  }
  SetColumnWidth(rest, std::max(left, least));
}

void ListView::AlignRight(int column) const {
  LVCOLUMNW format = {};
  format.mask = LVCF_FMT;
  format.fmt = LVCFMT_RIGHT;
  Send(LVM_SETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&format));
}

// The header tells its list what the user does with it.
LRESULT ListView::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_NOTIFY) {
    const UINT code = reinterpret_cast<const NMHDR*>(lparam)->code;
    sized_ = sized_ || std::ranges::find(kSized, code) != std::end(kSized);
  }
  if (message == WM_DESTROY && sized_ && list_) KeepColumns();
  return Default(message, wparam, lparam);
}

void ListView::KeepColumns() const {
  const auto header = reinterpret_cast<HWND>(Send(LVM_GETHEADER));
  const auto count = static_cast<int>(Calls().Send(header, HDM_GETITEMCOUNT, 0, 0));
  std::vector<int> widths;
  for (int i = 0; i < count; ++i) widths.push_back(ColumnWidth(i));
  KeepWidths(*env_, list_, widths);
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
