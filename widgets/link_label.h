// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/drawn_button.h"

namespace scourwell {

// A text to be clicked, underlined, in the colour of links.
class LinkLabel : public DrawnButton {
 public:
  int width() const;
  int height() const { return metrics().LineHeight() + metrics().Scale(4); }

 private:
  std::string Shown() const;
  void Underline(HDC dc, const RECT& area, int width) const;
  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  void Draw(HDC dc, RECT area, const State& state) const override;
};

}  // namespace scourwell
