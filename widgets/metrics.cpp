// SPDX-License-Identifier: MIT
#include "widgets/metrics.h"

#include <algorithm>

#include "platform/win/family.h"
#include "platform/win/native_text.h"
#include "platform/win/window_calls.h"

namespace scourwell {
namespace {

constexpr wchar_t kMenuFace[] = L"Ms Sans Serif";
constexpr wchar_t kScalableFace[] = L"Courier New";
constexpr int kFixedHeight = 13;  // pixels at 96 dots per inch

// On the ANSI side there are no others.
bool HasSystemLettersOnly(const std::string& text) {
  return !HasWideCalls() || ExactNarrow(text).has_value();
}

template <std::size_t n>
LOGFONTW Faced(LOGFONTW font, const wchar_t (&face)[n]) {
  std::copy_n(face, n, font.lfFaceName);
  return font;
}

// The screen's device context with a font in it, for measuring.
class MeasuringDc {
 public:
  explicit MeasuringDc(HFONT font) : dc_(GetDC(nullptr)), old_(SelectObject(dc_, font)) {}
  MeasuringDc(const MeasuringDc&) = delete;
  MeasuringDc& operator=(const MeasuringDc&) = delete;
  ~MeasuringDc() {
    SelectObject(dc_, old_);
    ReleaseDC(nullptr, dc_);
  }
  HDC get() const { return dc_; }

 private:
  HDC dc_;
  HGDIOBJ old_;
};

HFONT Plain(const LOGFONTW& font) { return Calls().Font(font); }

HFONT Underlined(LOGFONTW font) {
  font.lfUnderline = TRUE;
  return Calls().Font(font);
}

HFONT Bold(LOGFONTW font, int percent = 100) {
  font.lfWeight = FW_BOLD;
  font.lfHeight = MulDiv(font.lfHeight, percent, 100);
  font.lfWidth = 0;
  return Calls().Font(font);
}

}  // namespace

Metrics::Metrics() {
  HDC screen = GetDC(nullptr);
  dpi_ = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  const LOGFONTW message = Calls().MessageFont();
  font_.Reset(Plain(message));
  bold_.Reset(Bold(message));
  underlined_.Reset(Underlined(message));
  heading_.Reset(Bold(message, 110));
  title_.Reset(Bold(message, 170));
  const LOGFONTW menu = Faced(message, kMenuFace);
  menu_.Reset(Plain(menu));
  menu_bold_.Reset(Bold(menu));
  menu_underlined_.Reset(Underlined(menu));
  LOGFONTW fixed = Calls().FixedFont();
  fixed_.Reset(Plain(fixed));
  fixed = Faced(fixed, kScalableFace);
  fixed.lfHeight = -Scale(kFixedHeight);
  fixed.lfWidth = 0;
  fixed.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
  fixed.lfOutPrecision = OUT_TT_PRECIS;
  fixed_scalable_.Reset(Plain(fixed));
  line_ = LineHeight(font());
}

int Metrics::LineHeight(HFONT font) const {
  return Calls().SizeOfFont(MeasuringDc(font).get()).height;
}

int Metrics::TextWidth(HFONT font, const std::string& text) const {
  return Calls().Extent(MeasuringDc(font).get(), text).cx;
}

int Metrics::WidestText(std::span<const std::string> texts) const {
  int widest = 0;
  for (const std::string& text : texts) widest = std::max(widest, TextWidth(text));
  return widest;
}

int Metrics::CaptionWidth(const std::string& caption) const {
  RECT area = {};
  Calls().Draw(MeasuringDc(font()).get(), caption, &area, DT_CALCRECT | DT_SINGLELINE);
  return area.right;
}

int Metrics::TextHeight(HFONT font, const std::string& text, int width) const {
  RECT area = {0, 0, std::max(1, width), 0};
  Calls().Draw(MeasuringDc(font).get(), text, &area, DT_CALCRECT | DT_WORDBREAK);
  return area.bottom;
}

MenuFonts Metrics::menu(std::span<const std::string> texts) const {
  if (std::all_of(texts.begin(), texts.end(), HasSystemLettersOnly)) {
    return {menu_.get(), menu_bold_.get(), menu_underlined_.get()};
  }
  return {font(), bold(), underlined_.get()};
}

// The system's own one is also drawn for 96 dots per inch.
HFONT Metrics::fixed(const std::string& text) const {
  const bool fits = Scale(100) <= 100 && HasSystemLettersOnly(text);
  return fits ? fixed_.get() : fixed_scalable_.get();
}

int Metrics::IconSize(int pixels) const {
  int best = 16;
  for (const int size : {24, 32, 48, 64, 96}) {
    if (size <= Scale(pixels)) best = size;
  }
  return best;
}

int Metrics::ButtonWidth(const std::string& caption) const {
  return std::max(Scale(79), TextWidth(caption) + Scale(22));
}

}  // namespace scourwell
