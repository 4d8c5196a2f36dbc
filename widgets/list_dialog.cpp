// SPDX-License-Identifier: MIT
#include "widgets/list_dialog.h"

#include "widgets/button_rows.h"

namespace scourwell {

void ListDialog::CreateHeader(const std::string& heading, const std::string& empty) {
  header_.Create(hwnd(), ids_.header);
  header_.SetHeading(heading);
  lblEmpty_.Create(env_, hwnd(), ids_.empty, empty, SS_CENTER);
}

void ListDialog::Arrange(Area area, const Control& list, std::initializer_list<const Button*> left,
                         std::initializer_list<const Button*> right) {
  Layout layout;
  layout.Place(header_.hwnd(), area.CutTop(header_.Height()));
  Area inner = area.Shrunk(metrics().Margin(), metrics().Margin());
  PlaceButtons(layout, metrics(), &inner, std::span(left.begin(), left.size()),
               std::span(right.begin(), right.size()));
  inner.CutBottom(metrics().Margin());
  layout.Place(list, inner);
  const int line = metrics().LineHeight();
  const Area empty = inner.Shrunk(metrics().Scale(4), inner.height() / 2 - line);
  layout.Place(lblEmpty_, {empty.left, empty.top, empty.right, empty.top + 2 * line});
}

LRESULT ListDialog::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_CTLCOLORSTATIC && reinterpret_cast<HWND>(lparam) == lblEmpty_.hwnd()) {
    SetBkColor(reinterpret_cast<HDC>(wparam), GetSysColor(COLOR_WINDOW));
    SetTextColor(reinterpret_cast<HDC>(wparam), GetSysColor(COLOR_WINDOWTEXT));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
  }
  return ModalWindow::OnMessage(message, wparam, lparam);
}

}  // namespace scourwell
