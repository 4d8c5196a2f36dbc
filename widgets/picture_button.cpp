// SPDX-License-Identifier: MIT
#include "widgets/picture_button.h"

#include <algorithm>

#include "text/unicode.h"
#include "widgets/faded_icon.h"

namespace scourwell {
namespace {

constexpr char32_t kFirstWideSign = 0x2E80;

}  // namespace

void PictureButton::Create(const WindowEnv& env, HWND parent, int id, const std::string& text,
                           int icon, int size) {
  size_ = env.metrics.IconSize(size);
  icon_.Reset(static_cast<HICON>(Calls().Image(env.instance, icon, IMAGE_ICON, size_, 0)));
  DrawnButton::Create(env, parent, id, text);
}

int PictureButton::HeightFor(int width) const {
  const int text = metrics().TextHeight(font(), Text(), width - 2 * Inset());
  return size_ + text + 3 * Inset();
}

// A caption is broken at blanks and beside the signs of East Asian scripts.
int PictureButton::LeastWidth() const {
  const std::string text = Text();
  int widest = size_;
  std::string word;
  const auto end_word = [&] {
    widest = std::max(widest, metrics().TextWidth(font(), word));
    word.clear();
  };
  for (std::size_t at = 0; at < text.size();) {
    const char32_t code = NextCode(text, &at);
    const bool alone = code == ' ' || (code >= kFirstWideSign && code < kStrayByte);
    if (alone) end_word();
    AppendCode(code, &word);
    if (alone) end_word();
  }
  end_word();
  return widest + 2 * Inset();
}

void PictureButton::Draw(HDC dc, RECT area, const State& state) const {
  RECT edge = area;
  if (state.pressed) {
    DrawEdge(dc, &edge, BDR_SUNKENOUTER, BF_RECT);
    OffsetRect(&area, 1, 1);
  } else if (state.hot && !faded()) {
    DrawEdge(dc, &edge, BDR_RAISEDINNER, BF_RECT);
  } else if (state.preset) {
    FrameRect(dc, &edge, GetSysColorBrush(COLOR_BTNSHADOW));
  }
  const int x = (area.left + area.right - size_) / 2;
  const int y = area.top + Inset();
  if (icon_ && faded()) {
    DrawFadedIcon(dc, x, y, icon_.get(), size_);
  } else if (icon_) {
    DrawIconEx(dc, x, y, icon_.get(), size_, size_, 0, nullptr, DI_NORMAL);
  }
  area.top = y + size_ + Inset();
  InflateRect(&area, -Inset(), 0);
  DrawCaption(dc, area, state.prefix);
  if (!state.focused) return;
  InflateRect(&edge, -metrics().Scale(2), -metrics().Scale(2));
  SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
  DrawFocusRect(dc, &edge);
}

void PictureButton::DrawCaption(HDC dc, RECT area, UINT prefix) const {
  const std::string text = Text();
  SetTextColor(dc, GetSysColor(faded() ? COLOR_GRAYTEXT : COLOR_BTNTEXT));
  Calls().Draw(dc, text, &area, DT_CENTER | DT_WORDBREAK | prefix);
}

}  // namespace scourwell
