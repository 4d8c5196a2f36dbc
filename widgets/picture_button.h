// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/drawn_button.h"

namespace scourwell {

// A flat button: a picture with its caption below, in as many lines as the width asks for.
class PictureButton : public DrawnButton {
 public:
  // `icon`: a resource; `size`: of the picture in pixels at 96 dots per inch.
  void Create(const WindowEnv& env, HWND parent, int id, const std::string& text, int icon,
              int size);
  // What the picture and the longest word need.
  int LeastWidth() const;
  // What a button of that width needs.
  int HeightFor(int width) const;

 private:
  void Draw(HDC dc, RECT area, const State& state) const override;
  void DrawCaption(HDC dc, RECT area, UINT prefix) const;
  int Inset() const { return metrics().Scale(4); }

  IconHandle icon_;
  int size_ = 0;
};

}  // namespace scourwell
