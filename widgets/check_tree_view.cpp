// SPDX-License-Identifier: MIT
#include "widgets/check_tree_view.h"

#include <windowsx.h>

#include "platform/win/control_calls.h"

namespace scourwell {

void CheckTreeView::Create(const WindowEnv& env, HWND parent, int id) {
  CreateHandle(env, parent, "SysTreeView32",
               WS_TABSTOP | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS |
                   TVS_DISABLEDRAGDROP,
               WS_EX_CLIENTEDGE, id);
  // Older common controls make the box images only when the style is added afterwards.
  Calls().SetLong(hwnd(), GWL_STYLE, Calls().Long(hwnd(), GWL_STYLE) | TVS_CHECKBOXES);
  Subclass(env, "TreeView1");
}

HTREEITEM CheckTreeView::Add(HTREEITEM parent, const std::string& text, int image,
                             std::size_t number) const {
  return Controls().AddItem(hwnd(), parent, text, image, static_cast<LPARAM>(number));
}

void CheckTreeView::SetChecked(HTREEITEM item, bool checked) const {
  if (IsChecked(item) == checked) return;
  TVITEMW change = {};
  change.mask = TVIF_HANDLE | TVIF_STATE;
  change.hItem = item;
  change.stateMask = TVIS_STATEIMAGEMASK;
  change.state = INDEXTOSTATEIMAGEMASK(checked ? 2u : 1u);
  Default(Controls().tree_set, 0, reinterpret_cast<LPARAM>(&change));
}

bool CheckTreeView::IsChecked(HTREEITEM item) const {
  TVITEMW asked = {};
  asked.mask = TVIF_HANDLE | TVIF_STATE;
  asked.hItem = item;
  asked.stateMask = TVIS_STATEIMAGEMASK;
  Send(Controls().tree_get, 0, reinterpret_cast<LPARAM>(&asked));
  return (asked.state & TVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2);
}

LRESULT CheckTreeView::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      if (ClickBox({GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)})) return 0;
      break;
    case WM_KEYDOWN:
      if (wparam == VK_SPACE) return PressSpace(), 0;
      break;
    case WM_CHAR:
      if (wparam == ' ') return 0;  // done at its key-down
      break;
    default:
      if (message != Controls().tree_set && message != Controls().tree_set_other) break;
      if (SetState(*reinterpret_cast<const TVITEMW*>(lparam))) return TRUE;
      break;
  }
  return Default(message, wparam, lparam);
}

void CheckTreeView::Check(HTREEITEM item, bool checked) const {
  TVITEMW asked = {};
  asked.mask = TVIF_HANDLE | TVIF_PARAM;
  asked.hItem = item;
  if (Send(Controls().tree_get, 0, reinterpret_cast<LPARAM>(&asked))) {
    on_check(static_cast<std::size_t>(asked.lParam), checked);
  }
}

bool CheckTreeView::ClickBox(POINT at) const {
  TVHITTESTINFO hit = {};
  hit.pt = at;
  const auto item =
      reinterpret_cast<HTREEITEM>(Send(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
  if (!item || !(hit.flags & TVHT_ONITEMSTATEICON)) return false;
  SetFocus(hwnd());
  Check(item, !IsChecked(item));
  return true;
}

void CheckTreeView::PressSpace() const {
  const auto item = SelectedItem();
  if (item) Check(item, !IsChecked(item));
}

// A tick that another program sets, such as a screen reader.
bool CheckTreeView::SetState(const TVITEMW& item) const {
  if (!(item.mask & TVIF_STATE) || !(item.stateMask & TVIS_STATEIMAGEMASK)) return false;
  Check(item.hItem, (item.state & TVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2));
  return true;
}

}  // namespace scourwell
