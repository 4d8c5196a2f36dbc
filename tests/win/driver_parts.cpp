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

}  // namespace

std::vector<ListRow> ListRows(HWND list) {
  Remote remote(list);
  std::vector<ListRow> rows;
  const auto header = reinterpret_cast<HWND>(Send(list, LVM_GETHEADER, 0, 0));
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
  Remote remote(list);
  LVITEMW item = {};
  item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
  for (const bool selected : {false, true}) {
    item.state = selected ? item.stateMask : 0;
    remote.Put(&item, sizeof item);
    Send(list, LVM_SETITEMSTATE, static_cast<WPARAM>(selected ? row : -1),
         reinterpret_cast<LPARAM>(remote.at()));
  }
}

void ClickHead(HWND list, int column) {
  const auto header = reinterpret_cast<HWND>(Send(list, LVM_GETHEADER, 0, 0));
  Remote remote(header);
  RECT place = {};
  Send(header, HDM_GETITEMRECT, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(remote.at()));
  remote.Get(&place, sizeof place);
  const LPARAM at = MAKELPARAM((place.left + place.right) / 2, (place.top + place.bottom) / 2);
  PostMessageW(header, WM_LBUTTONDOWN, MK_LBUTTON, at);
  PostMessageW(header, WM_LBUTTONUP, 0, at);
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
  const auto header = reinterpret_cast<HWND>(Send(list, LVM_GETHEADER, 0, 0));
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
