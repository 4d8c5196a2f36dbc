// SPDX-License-Identifier: MIT
#include "widgets/side_menu.h"

#include <algorithm>

#include "widgets/back_buffer.h"
#include "widgets/faded_icon.h"
#include "widgets/reflected.h"

namespace scourwell {
namespace {

constexpr UINT_PTR kMenuTimer = 1;
constexpr UINT kMenuInterval = 80;  // milliseconds

}  // namespace

void SideMenu::Create(const WindowEnv& env, HWND parent, int id) {
  env_ = &env;
  CreateHandle(
      env, parent, "LISTBOX",
      WS_TABSTOP | WS_VSCROLL | LBS_OWNERDRAWVARIABLE | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT,
      WS_EX_CLIENTEDGE, id);
  Subclass(env, "MenuXP1");
  tip_.Create(env, parent);
  icon_size_ = env.metrics.IconSize(16);
}

int SideMenu::RowHeight(const Item& item) const {
  const Metrics& metrics = env_->metrics;
  const int line = metrics.LineHeight(fonts_.plain);
  return item.command == 0 ? line + metrics.Scale(9)
                           : std::max(line, icon_size_) + metrics.Scale(4);
}

void SideMenu::Fill(std::vector<Item> items) {
  std::vector<std::string> texts;
  for (const Item& item : items) texts.push_back(item.text);
  fonts_ = env_->metrics.menu(texts);
  SetFont(fonts_.plain);
  const int selected = Selected();
  hot_ = pressed_ = -1;
  rows_.clear();
  Send(WM_SETREDRAW, FALSE);
  Send(LB_RESETCONTENT);
  for (Item& item : items) {
    const auto index = static_cast<WPARAM>(rows_.size());
    SendText(LB_ADDSTRING, 0, item.text);
    Send(LB_SETITEMHEIGHT, index, RowHeight(item));
    IconHandle icon;
    if (item.icon != 0) {
      icon.Reset(
          static_cast<HICON>(Calls().Image(env_->instance, item.icon, IMAGE_ICON, icon_size_, 0)));
    }
    rows_.push_back({std::move(item), std::move(icon)});
  }
  Send(LB_SETCURSEL, static_cast<WPARAM>(std::max(1, selected)));
  Send(WM_SETREDRAW, TRUE);
  Redraw();
}

int SideMenu::Width() const {
  const Metrics& metrics = env_->metrics;
  int width = 0;
  for (const Row& row : rows_) {
    width = std::max(width, metrics.TextWidth(fonts_.plain, row.item.text));
  }
  const int frame = icon_size_ + metrics.Scale(30) + GetSystemMetrics(SM_CXVSCROLL);
  return std::clamp(width + frame, metrics.Scale(150), metrics.Scale(230));
}

bool SideMenu::IsCommand(int row) const {
  return row >= 0 && row < static_cast<int>(rows_.size()) &&
         rows_[static_cast<std::size_t>(row)].item.command != 0;
}

LRESULT SideMenu::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case kReflectedDraw:
      DrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lparam));
      return TRUE;
    case WM_GETDLGCODE: {
      const auto* key = reinterpret_cast<const MSG*>(lparam);
      const bool enter = key && key->message == WM_KEYDOWN && key->wParam == VK_RETURN;
      return Default(message, wparam, lparam) | (enter ? DLGC_WANTMESSAGE : 0);
    }
    case WM_KEYDOWN:
      if (OnKey(wparam)) return 0;
      break;
    case WM_MOUSEMOVE:
    case WM_TIMER:
      if (message == WM_TIMER && wparam != kMenuTimer) break;
      Follow();
      if (message == WM_TIMER) return 0;
      break;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      pressed_ = RowUnderMouse();
      if (!IsCommand(pressed_)) return SetFocus(hwnd()), 0;
      break;
    case WM_LBUTTONUP: {
      const LRESULT result = Default(message, wparam, lparam);
      const int row = RowUnderMouse();
      if (row == std::exchange(pressed_, -1)) Carry(row);
      return result;
    }
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      Redraw();
      break;
    default:
      break;
  }
  const LRESULT result = Default(message, wparam, lparam);
  // Typing a letter may have gone to a heading.
  if (message == WM_CHAR) LeaveHeading(1);
  return result;
}

bool SideMenu::OnKey(WPARAM key) {
  switch (key) {
    case VK_RETURN:
    case VK_SPACE:
      Carry(Selected());
      return true;
    case VK_UP:
      Move(-1);
      return true;
    case VK_DOWN:
      Move(1);
      return true;
    case VK_HOME:
    case VK_PRIOR:
    case VK_END:
    case VK_NEXT: {
      const bool up = key == VK_HOME || key == VK_PRIOR;
      Default(WM_KEYDOWN, key, 0);
      LeaveHeading(up ? 1 : -1);
      return true;
    }
    default:
      return false;
  }
}

// Moves to the next command, past headings.
void SideMenu::Move(int step) {
  int row = Selected() + step;
  while (row >= 0 && row < static_cast<int>(rows_.size()) && !IsCommand(row)) row += step;
  if (!IsCommand(row)) {
    // The heading above the first command comes into sight.
    if (step < 0) Send(LB_SETTOPINDEX, 0);
    return;
  }
  Send(LB_SETCURSEL, static_cast<WPARAM>(row));
}

void SideMenu::LeaveHeading(int step) {
  if (!IsCommand(Selected())) Move(step);
}

int SideMenu::RowUnderMouse() const {
  POINT mouse;
  GetCursorPos(&mouse);
  if (WindowFromPoint(mouse) != hwnd()) return -1;
  ScreenToClient(hwnd(), &mouse);
  for (int row = static_cast<int>(Send(LB_GETTOPINDEX)); row < static_cast<int>(rows_.size());
       ++row) {
    RECT area;
    Send(LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
    if (PtInRect(&area, mouse)) return row;
  }
  return -1;
}

// Old systems do not tell when the mouse leaves, so a timer looks.
void SideMenu::Follow() {
  const int row = RowUnderMouse();
  const int hot = IsCommand(row) ? row : -1;
  if (hot == hot_) return;
  hot_ = hot;
  tip_.Set(hwnd(), hot < 0 ? std::string() : rows_[static_cast<std::size_t>(hot)].item.tip);
  if (hot < 0) {
    KillTimer(hwnd(), kMenuTimer);
  } else {
    SetTimer(hwnd(), kMenuTimer, kMenuInterval, nullptr);
  }
  Redraw();
}

void SideMenu::Carry(int row) const {
  if (IsCommand(row) && on_command) on_command(rows_[static_cast<std::size_t>(row)].item.command);
}

void SideMenu::DrawItem(const DRAWITEMSTRUCT& item) const {
  if (item.itemID >= rows_.size() || IsRectEmpty(&item.rcItem)) return;
  const Row& row = rows_[item.itemID];
  const BackBuffer buffer(item.hDC, item.rcItem);
  SetBkMode(buffer.dc(), TRANSPARENT);
  const bool focused = GetFocus() == hwnd();
  const bool selected = (item.itemState & ODS_SELECTED) != 0 && focused;
  const HGDIOBJ old = SelectObject(buffer.dc(), fonts_.plain);
  if (row.item.command == 0) {
    DrawHeading(buffer.dc(), item.rcItem, row);
  } else {
    DrawCommand(buffer.dc(), item.rcItem, row, selected, static_cast<int>(item.itemID) == hot_);
  }
  SelectObject(buffer.dc(), old);
}

void SideMenu::DrawHeading(HDC dc, RECT area, const Row& row) const {
  FillRect(dc, &area, GetSysColorBrush(COLOR_BTNFACE));
  DrawEdge(dc, &area, BDR_RAISEDINNER, BF_TOP | BF_BOTTOM);
  SelectObject(dc, fonts_.bold);
  SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
  area.left += env_->metrics.Scale(6);
  Calls().Draw(dc, row.item.text, &area,
               DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

void SideMenu::DrawCommand(HDC dc, RECT area, const Row& row, bool selected, bool hot) const {
  const Metrics& metrics = env_->metrics;
  FillRect(dc, &area, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  const int x = area.left + metrics.Scale(8);
  const int y = (area.top + area.bottom - icon_size_) / 2;
  if (row.item.faded) {
    DrawFadedIcon(dc, x, y, row.icon.get(), icon_size_);
  } else {
    DrawIconEx(dc, x, y, row.icon.get(), icon_size_, icon_size_, 0, nullptr, DI_NORMAL);
  }
  SetTextColor(dc, GetSysColor(selected         ? COLOR_HIGHLIGHTTEXT
                               : row.item.faded ? COLOR_GRAYTEXT
                                                : COLOR_WINDOWTEXT));
  RECT text = area;
  text.left = x + icon_size_ + metrics.Scale(6);
  text.right -= metrics.Scale(4);
  if (hot && !row.item.faded) SelectObject(dc, fonts_.underlined);
  Calls().Draw(dc, row.item.text, &text,
               DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
  if (selected) DrawFocusRect(dc, &area);
}

}  // namespace scourwell
