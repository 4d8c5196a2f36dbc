// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/control.h"

namespace scourwell {

// A STATIC whose text changes often: drawn by its owner in one go, so that it does not flicker.
// Its window text is always the whole text, however much of it is shown.
class LiveLabel : public Control {
 public:
  // `format`: how DrawText shortens and aligns the text.
  void Create(const WindowEnv& env, HWND parent, int id, UINT format = DT_END_ELLIPSIS);

  void SetFormat(UINT format) const;

  // Redraws only when the text is another one.
  void SetText(const std::string& text);

  // For the owner's WM_DRAWITEM; the colours are numbers of system colours.
  static void Draw(const DRAWITEMSTRUCT& item, int back_colour, int text_colour);

 private:
  std::string text_;
};

}  // namespace scourwell
