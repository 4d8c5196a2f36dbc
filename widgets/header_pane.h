// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/label.h"
#include "widgets/live_label.h"
#include "widgets/pane.h"
#include "widgets/picture.h"

namespace scourwell {

// The light band at the top of a page: the symbol, a heading, a text below it and, if the page
// wants them, short texts at the right.
class HeaderPane : public Pane {
 public:
  struct Ids {
    int heading;
    int text;
    int right;  // beside the heading; 0: none
    int right_below = 0;
  };
  enum class Size { Small, Large };

  HeaderPane(const WindowEnv& env, Size size, Ids ids);

  // The height for the width that its parent has now: a text that is too long for a line takes two.
  int Height() const;
  void SetHeading(const std::string& text) { heading_.SetText(text); }
  void SetText(const std::string& text) { text_.SetText(text); }
  void SetRight(const std::string& text) { right_.SetText(text); }
  void SetRightBelow(const std::string& text) { right_below_.SetText(text); }
  // The widest texts that will come at the right.
  void ReserveRight(const std::string& text, const std::string& below);

 protected:
  void OnCreate() override;
  void OnSize(Area area) override;
  void OnPaint(HDC dc) override;
  int BackColour() const override { return COLOR_WINDOW; }

 private:
  bool large() const { return size_ == Size::Large; }
  int Margin() const;
  int HeadingHeight() const;
  int TextWidth() const;
  bool Wraps() const;
  int TextHeight() const;

  Size size_;
  Ids ids_;
  Picture symbol_;
  Label heading_;
  LiveLabel text_;
  LiveLabel right_;
  LiveLabel right_below_;
  int right_width_ = 0;
  int right_below_width_ = 0;
};

}  // namespace scourwell
