// SPDX-License-Identifier: MIT

// What stands in lists, trees, tabs and status bars.
#include <windows.h>
#include <commctrl.h>

#include "tests/win/driver.h"
#include "tests/win/remote.h"

namespace scourwell::ui {
namespace {

void AddTreeRows(HWND tree, LRESULT node, int depth, std::vector<TreeRow>* rows) {
  Remote remote(tree);
  for (; node != 0; node = Send(tree, TVM_GETNEXTITEM, TVGN_NEXT, node)) {
    TVITEMW item = {};
    item.mask = TVIF_TEXT | TVIF_STATE | TVIF_HANDLE;
    item.stateMask = TVIS_STATEIMAGEMASK;
    item.hItem = reinterpret_cast<HTREEITEM>(node);
    const std::string text = AskItem(&remote, tree, TVM_GETITEMW, 0, &item);
    rows->push_back({depth, item.state >> 12 == 2, text});
    AddTreeRows(tree, Send(tree, TVM_GETNEXTITEM, TVGN_CHILD, node), depth + 1, rows);
  }
}

// Of a row, or of all (-1).
void SetState(HWND list, int row, UINT mask, UINT state) {
  Remote remote(list);
  LVITEMW item = {};
  item.stateMask = mask;
  item.state = state;
  remote.Put(&item, sizeof item);
  Send(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(remote.at()));
}

HWND HeaderOf(HWND list) { return reinterpret_cast<HWND>(Send(list, LVM_GETHEADER, 0, 0)); }

RECT HeadOf(HWND list, int column) {
  Remote remote(HeaderOf(list));
  RECT place = {};
  Send(HeaderOf(list), HDM_GETITEMRECT, static_cast<WPARAM>(column),
       reinterpret_cast<LPARAM>(remote.at()));
  remote.Get(&place, sizeof place);
  return place;
}

}  // namespace

std::vector<ListRow> ListRows(HWND list) {
  Remote remote(list);
  std::vector<ListRow> rows;
  const HWND header = HeaderOf(list);
  const LRESULT columns = Send(header, HDM_GETITEMCOUNT, 0, 0);
  const LRESULT count = Send(list, LVM_GETITEMCOUNT, 0, 0);
  for (LRESULT i = 0; i < count; ++i) {
    ListRow row;
    row.checked =
        Send(list, LVM_GETITEMSTATE, static_cast<WPARAM>(i), LVIS_STATEIMAGEMASK) >> 12 == 2;
    for (LRESULT column = 0; column < columns; ++column) {
      LVITEMW item = {};
      item.iSubItem = static_cast<int>(column);
      row.texts.push_back(AskItem(&remote, list, LVM_GETITEMTEXTW, i, &item));
    }
    rows.push_back(row);
  }
  return rows;
}

void SelectRow(HWND list, int row) {
  SetState(list, -1, LVIS_SELECTED | LVIS_FOCUSED, 0);
  SetState(list, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}

void SelectRows(HWND list, int first, int last) {
  SetState(list, -1, LVIS_SELECTED, 0);
  for (int row = first; row <= last; ++row) SetState(list, row, LVIS_SELECTED, LVIS_SELECTED);
}

void ClickHead(HWND list, int column) {
  const RECT place = HeadOf(list, column);
  const LPARAM at = MAKELPARAM((place.left + place.right) / 2, (place.top + place.bottom) / 2);
  PostMessageW(HeaderOf(list), WM_LBUTTONDOWN, MK_LBUTTON, at);
  PostMessageW(HeaderOf(list), WM_LBUTTONUP, 0, at);
}

void DragHead(HWND list, int column, int by) {
  const RECT place = HeadOf(list, column);
  const int edge = place.right - 1;
  const int middle = (place.top + place.bottom) / 2;
  Send(HeaderOf(list), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(edge, middle));
  Send(HeaderOf(list), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(edge + by, middle));
  Send(HeaderOf(list), WM_LBUTTONUP, 0, MAKELPARAM(edge + by, middle));
}

std::vector<TreeRow> TreeRows(HWND tree) {
  std::vector<TreeRow> rows;
  AddTreeRows(tree, Send(tree, TVM_GETNEXTITEM, TVGN_ROOT, 0), 0, &rows);
  return rows;
}

std::string StatusText(HWND status, int part) {
  Remote remote(status);
  Send(status, SB_GETTEXTW, static_cast<WPARAM>(part), reinterpret_cast<LPARAM>(remote.at()));
  return remote.GetText(0);
}

std::vector<TextPart> ColumnHeads(HWND list) {
  Remote remote(list);
  std::vector<TextPart> heads;
  const HWND header = HeaderOf(list);
  const LRESULT count = Send(header, HDM_GETITEMCOUNT, 0, 0);
  for (LRESULT i = 0; i < count; ++i) {
    HDITEMW item = {};
    item.mask = HDI_TEXT | HDI_WIDTH;
    const std::string text = AskItem(&remote, header, HDM_GETITEMW, i, &item);
    heads.push_back({item.cxy, text});
  }
  return heads;
}

std::vector<TextPart> Tabs(HWND tab_control) {
  Remote remote(tab_control);
  std::vector<TextPart> tabs;
  const LRESULT count = Send(tab_control, TCM_GETITEMCOUNT, 0, 0);
  for (LRESULT i = 0; i < count; ++i) {
    RECT place = {};
    Send(tab_control, TCM_GETITEMRECT, static_cast<WPARAM>(i),
         reinterpret_cast<LPARAM>(remote.at()));
    remote.Get(&place, sizeof place);
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    const std::string text = AskItem(&remote, tab_control, TCM_GETITEMW, i, &item);
    tabs.push_back({static_cast<int>(place.right - place.left), text});
  }
  return tabs;
}

std::vector<TextPart> StatusParts(HWND status) {
  std::vector<TextPart> parts;
  const LRESULT count = Send(status, SB_GETPARTS, 0, 0);
  for (int i = 0; i < count; ++i) {
    Remote remote(status);
    RECT place = {};
    Send(status, SB_GETRECT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(remote.at()));
    remote.Get(&place, sizeof place);
    parts.push_back({static_cast<int>(place.right - place.left), StatusText(status, i)});
  }
  return parts;
}

}  // namespace scourwell::ui
