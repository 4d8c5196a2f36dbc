#include "widgets/metrics.h"

#include <algorithm>

namespace scourwell {
namespace {

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

// What a program draws itself is read in the code page of the font, what controls draw in that of
// the system. The font of messages need not be of the system's.
LOGFONTA InSystemLetters(LOGFONTA font) {
  CHARSETINFO letters = {};
  const auto page = static_cast<DWORD_PTR>(GetACP());
  if (TranslateCharsetInfo(reinterpret_cast<DWORD*>(page), &letters, TCI_SRCCODEPAGE)) {
    font.lfCharSet = static_cast<BYTE>(letters.ciCharset);
  }
  return font;
}

LOGFONTA MessageFont() {
  NONCLIENTMETRICSA metrics = {};
  metrics.cbSize = sizeof metrics;
  if (SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) {
    return InSystemLetters(metrics.lfMessageFont);
  }
  LOGFONTA font = {};
  GetObjectA(GetStockObject(DEFAULT_GUI_FONT), sizeof font, &font);
  return font;
}

LOGFONTA Named(LOGFONTA font, const char* name) {
  lstrcpynA(font.lfFaceName, name, sizeof font.lfFaceName);
  return font;
}

HFONT Underlined(LOGFONTA font) {
  font.lfUnderline = TRUE;
  return CreateFontIndirectA(&font);
}

HFONT Bold(LOGFONTA font, int percent) {
  font.lfWeight = FW_BOLD;
  font.lfHeight = MulDiv(font.lfHeight, percent, 100);
  font.lfWidth = 0;
  return CreateFontIndirectA(&font);
}

}  // namespace

Metrics::Metrics() {
  HDC screen = GetDC(nullptr);
  dpi_ = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  const LOGFONTA message = MessageFont();
  font_.Reset(CreateFontIndirectA(&message));
  bold_.Reset(Bold(message, 100));
  heading_.Reset(Bold(message, 110));
  title_.Reset(Bold(message, 170));
  const LOGFONTA menu = Named(message, "Ms Sans Serif");
  menu_.Reset(CreateFontIndirectA(&menu));
  menu_bold_.Reset(Bold(menu, 100));
  menu_underlined_.Reset(Underlined(menu));
  line_ = LineHeight(font());
}

int Metrics::LineHeight(HFONT font) const {
  TEXTMETRICA metrics = {};
  GetTextMetricsA(MeasuringDc(font).get(), &metrics);
  return metrics.tmHeight;
}

int Metrics::TextWidth(HFONT font, const std::string& text) const {
  SIZE size = {};
  GetTextExtentPoint32A(MeasuringDc(font).get(), text.c_str(), static_cast<int>(text.size()),
                        &size);
  return size.cx;
}

int Metrics::TextHeight(HFONT font, const std::string& text, int width) const {
  RECT area = {0, 0, std::max(1, width), 0};
  DrawTextA(MeasuringDc(font).get(), text.c_str(), static_cast<int>(text.size()), &area,
            DT_CALCRECT | DT_WORDBREAK);
  return area.bottom;
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
