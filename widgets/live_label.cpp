// SPDX-License-Identifier: MIT
#include "widgets/live_label.h"

#include "text/escaped.h"
#include "widgets/back_buffer.h"

namespace scourwell {
namespace {

constexpr int kOverhang = 4;  // pixels by which a last letter may exceed its measured width

}  // namespace

void LiveLabel::Create(const WindowEnv& env, HWND parent, int id, UINT format) {
  CreateHandle(env, parent, "STATIC", SS_OWNERDRAW, 0, id);
  SetFormat(format);
}

void LiveLabel::SetFormat(UINT format) const {
  const UINT lines = (format & DT_WORDBREAK) ? 0 : DT_SINGLELINE;
  Calls().SetLong(hwnd(), GWL_USERDATA, static_cast<LONG>(format | lines | DT_NOPREFIX));
}

void LiveLabel::SetText(const std::string& text) {
  if (text == text_) return;
  text_ = text;
  Control::SetText(LinesForShowing(text));
  Redraw();
}

void LiveLabel::Draw(const DRAWITEMSTRUCT& item, int back_colour, int text_colour) {
  const auto font = Calls().Send(item.hwndItem, WM_GETFONT, 0, 0);
  auto format = static_cast<UINT>(Calls().Long(item.hwndItem, GWL_USERDATA));
  RECT area = item.rcItem;
  if (IsRectEmpty(&area)) return;
  const BackBuffer buffer(item.hDC, area);
  FillRect(buffer.dc(), &area, GetSysColorBrush(back_colour));
  const HGDIOBJ old = SelectObject(buffer.dc(), reinterpret_cast<HFONT>(font));
  SetBkMode(buffer.dc(), TRANSPARENT);
  if (format & DT_RIGHT) {
    area.right -= MulDiv(kOverhang, GetDeviceCaps(buffer.dc(), LOGPIXELSX), 96);
    format |= DT_NOCLIP;
  }
  SetTextColor(buffer.dc(), GetSysColor(text_colour));
  Calls().Draw(buffer.dc(), Calls().Text(item.hwndItem), &area, format);
  SelectObject(buffer.dc(), old);
}

}  // namespace scourwell
