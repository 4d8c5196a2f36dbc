// SPDX-License-Identifier: MIT
#include "widgets/link_label.h"

#include <algorithm>
#include <cstdlib>

#include "widgets/pointers.h"

namespace scourwell {
namespace {

constexpr int kHotLight = 26;  // COLOR_HOTLIGHT, which Windows 95 and NT do not have
constexpr int kReadable = 90;  // of 255 steps of brightness

int Luminance(COLORREF colour) {
  return (3 * GetRValue(colour) + 6 * GetGValue(colour) + GetBValue(colour)) / 10;
}

// The system's colour for links where it has one that can be read on our background.
COLORREF LinkColour() {
  const int face = Luminance(GetSysColor(COLOR_BTNFACE));
  for (const int colour : {kHotLight, COLOR_HIGHLIGHT}) {
    if (!GetSysColorBrush(colour)) continue;
    if (std::abs(Luminance(GetSysColor(colour)) - face) >= kReadable) return GetSysColor(colour);
  }
  return GetSysColor(COLOR_BTNTEXT);
}

HCURSOR LinkPointer() {
  const HCURSOR hand = SystemPointer(kHandPointer);
  return hand ? hand : SystemPointer(kArrowPointer);
}

}  // namespace

// Letters may reach beyond the width that they are said to have.
int LinkLabel::width() const { return metrics().TextWidth(Shown()) + metrics().Scale(10); }

// The whole text is underlined, so its access key cannot show.
std::string LinkLabel::Shown() const {
  std::string text = Text();
  if (const std::size_t at = text.find('&'); at != text.npos) text.erase(at, 1);
  return text;
}

LRESULT LinkLabel::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_SETCURSOR) {
    SetCursor(LinkPointer());
    return TRUE;
  }
  return DrawnButton::OnMessage(message, wparam, lparam);
}

// In the colour of the text; an underlined font may draw the line longer than the text.
void LinkLabel::Underline(HDC dc, const RECT& area, int width) const {
  const FontSize font = Calls().SizeOfFont(dc);
  const int top = (area.top + area.bottom - font.height) / 2 + font.ascent + 1;
  const RECT line = {area.left, top, std::min<LONG>(area.right, area.left + width),
                     top + std::max(1, metrics().Scale(1))};
  const BrushHandle brush(CreateSolidBrush(GetTextColor(dc)));
  FillRect(dc, &line, brush.get());
}

void LinkLabel::Draw(HDC dc, RECT area, const State& state) const {
  const std::string text = Shown();
  SetTextColor(dc, faded() ? GetSysColor(COLOR_GRAYTEXT) : LinkColour());
  RECT inner = area;
  InflateRect(&inner, -metrics().Scale(3), 0);
  Calls().Draw(dc, text, &inner,
               DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX | DT_NOCLIP);
  Underline(dc, inner, metrics().TextWidth(text));
  SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
  if (state.focused) DrawFocusRect(dc, &area);
}

}  // namespace scourwell
