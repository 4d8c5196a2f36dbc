// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>

#include "widgets/gdi_handles.h"

namespace scourwell {

struct MenuFonts {
  HFONT plain;
  HFONT bold;
  HFONT underlined;
};

// The sizes and fonts of the screen. Every length in a window comes through here, so that it
// follows the system's resolution and message font.
class Metrics {
 public:
  Metrics();

  // A length given in pixels at 96 dots per inch.
  int Scale(int pixels) const { return MulDiv(pixels, dpi_, 96); }
  // A length given in 1/1440 inch.
  int FromTwips(int units) const { return MulDiv(units, dpi_, 1440); }
  // How often a picture drawn for 96 dots per inch is repeated: whole times only.
  int PictureFactor() const { return dpi_ < 192 ? 1 : dpi_ / 96; }
  // The largest size that icons are drawn in, or twice such a size, that is not larger than so many
  // pixels at 96 dots per inch.
  int IconSize(int pixels) const;

  HFONT font() const { return font_.get(); }
  HFONT bold() const { return bold_.get(); }
  HFONT heading() const { return heading_.get(); }  // bold, larger
  HFONT title() const { return title_.get(); }      // bold, largest
  // Fonts that have the letters of the system's code page only, or others in their place where a
  // text holds more: that of the side menu, and one whose letters have one width.
  MenuFonts menu(std::span<const std::string> texts) const;
  HFONT fixed(const std::string& text) const;

  int LineHeight(HFONT font) const;
  int LineHeight() const { return line_; }
  int TextWidth(HFONT font, const std::string& text) const;
  int TextWidth(const std::string& text) const { return TextWidth(font(), text); }
  int WidestText(std::span<const std::string> texts) const;
  // The width without the "&" of its access key.
  int CaptionWidth(const std::string& caption) const;
  // The height in lines that are broken at that width.
  int TextHeight(HFONT font, const std::string& text, int width) const;

  int TextHeight(const std::string& text, int width) const {
    return TextHeight(font(), text, width);
  }

  int Margin() const { return Scale(11); }
  int WideMargin() const { return Scale(20); }
  int Gap() const { return Scale(7); }
  int ButtonHeight() const { return line_ + Scale(10); }
  int FieldHeight() const { return line_ + Scale(8); }
  int RowHeight() const { return line_ + Scale(4); }  // of a list
  // Wide enough for the caption and never narrower than its neighbours usually are.
  int ButtonWidth(const std::string& caption) const;

 private:
  int dpi_ = 96;
  int line_ = 0;
  FontHandle font_;
  FontHandle bold_;
  FontHandle underlined_;
  FontHandle heading_;
  FontHandle title_;
  FontHandle menu_;
  FontHandle menu_bold_;
  FontHandle menu_underlined_;
  FontHandle fixed_;
  FontHandle fixed_scalable_;
};

}  // namespace scourwell
