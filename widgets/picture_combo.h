// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "widgets/combo_box.h"

namespace scourwell {

// A list that unfolds, with a small picture before each text. Its parent passes the messages on.
class PictureCombo : public ComboBox {
 public:
  void Create(const WindowEnv& env, HWND parent, int id);
  // `picture`: path of a bitmap, or empty. One that cannot be loaded is recorded and not shown.
  void Add(const std::string& text, const std::string& picture);

  // For WM_MEASUREITEM, which comes before the window is there.
  static void Measure(const Metrics& metrics, MEASUREITEMSTRUCT* item);
  void Draw(const DRAWITEMSTRUCT& item) const;

 private:
  struct Entry {
    std::string text;
    BitmapHandle picture;
  };

  void DrawPicture(HDC dc, HBITMAP bitmap, const RECT& place) const;

  const WindowEnv* env_ = nullptr;
  std::vector<Entry> entries_;
};

}  // namespace scourwell
