// SPDX-License-Identifier: MIT
#include "widgets/check_list_view.h"

#include <windowsx.h>

#include <algorithm>

namespace scourwell {
namespace {

constexpr DWORD kLabelTip = 0x4000;  // unfolds cut texts; since common controls 5.80

}  // namespace

void CheckListView::Create(const WindowEnv& env, HWND parent, int id) {
  CreateHandle(env, parent, "SysListView32",
               WS_TABSTOP | WS_CLIPSIBLINGS | LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS |
                   LVS_SHAREIMAGELISTS,
               WS_EX_CLIENTEDGE, id);
  SetExtendedStyle(LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_INFOTIP | kLabelTip);
  Send(LVM_SETCALLBACKMASK, LVIS_STATEIMAGEMASK);
  SetRowHeight(env.metrics.RowHeight());
  Subclass(env, "SpyListView");
}

LRESULT CheckListView::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      if (ClickBox({GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)})) return 0;
      break;
    case WM_KEYDOWN:
      if (wparam == VK_SPACE) return PressSpace(), 0;
      if (wparam == 'A' && GetKeyState(VK_CONTROL) < 0) return Select(-1, true), 0;
      break;
    case WM_CHAR:
      if (wparam == ' ') return 0;  // done at its key-down
      break;
    case LVM_SETITEMSTATE:
      if (SetState(static_cast<int>(wparam), *reinterpret_cast<const LVITEMW*>(lparam))) {
        return TRUE;
      }
      break;
    default:
      break;
  }
  return ListView::OnMessage(message, wparam, lparam);
}

bool CheckListView::ClickBox(POINT at) {
  LVHITTESTINFO hit = {};
  hit.pt = at;
  const auto row = static_cast<int>(Send(LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
  if (row < 0 || !(hit.flags & LVHT_ONITEMSTATEICON) || (hit.flags & LVHT_ONITEMLABEL)) {
    return false;
  }
  SetFocus(hwnd());
  on_check({static_cast<std::size_t>(row)}, !is_checked(row));
  return true;
}

// All selected rows follow the one with the focus.
void CheckListView::PressSpace() {
  const int focused = Focused();
  if (focused < 0) return;
  std::vector<std::size_t> rows;
  for (int row = -1; (row = NextSelected(row)) >= 0;) rows.push_back(static_cast<std::size_t>(row));
  if (rows.empty()) rows.push_back(static_cast<std::size_t>(focused));
  on_check(rows, !is_checked(focused));
}

// A mark that another program sets, such as a screen reader; with row -1 that of all.
bool CheckListView::SetState(int row, const LVITEMW& item) {
  if (!(item.stateMask & LVIS_STATEIMAGEMASK)) return false;
  const auto end = row < 0 ? static_cast<std::size_t>(Send(LVM_GETITEMCOUNT))
                           : static_cast<std::size_t>(row) + 1;
  std::vector<std::size_t> rows;
  for (auto each = static_cast<std::size_t>(std::max(row, 0)); each < end; ++each) {
    rows.push_back(each);
  }
  on_check(rows, (item.state & LVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2));
  return true;
}

}  // namespace scourwell
