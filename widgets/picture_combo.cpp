// SPDX-License-Identifier: MIT
#include "widgets/picture_combo.h"

#include <algorithm>

namespace scourwell {
namespace {

constexpr int kPictureWidth = 20;  // pixels at 96 dots per inch
constexpr int kPictureHeight = 13;

}  // namespace

void PictureCombo::Create(const WindowEnv& env, HWND parent, int id) {
  env_ = &env;
  CreateHandle(env, parent, "COMBOBOX",
               WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS, 0,
               id);
}

void PictureCombo::Add(const std::string& text, const std::string& picture) {
  BitmapHandle bitmap;
  if (!picture.empty()) {
    bitmap.Reset(Calls().Picture(picture));
    if (!bitmap) {
      env_->log.LogFailure(
          Outcome::Failed(kTypeMismatch, "A picture could not be loaded").With("File: ", picture),
          "PictureCombo");
    }
  }
  entries_.push_back({text, std::move(bitmap)});
  ComboBox::Add(text);
}

void PictureCombo::Measure(const Metrics& metrics, MEASUREITEMSTRUCT* item) {
  item->itemHeight = static_cast<UINT>(
      std::max(metrics.LineHeight(), metrics.Scale(kPictureHeight)) + metrics.Scale(3));
}

void PictureCombo::Draw(const DRAWITEMSTRUCT& item) const {
  const bool selected = (item.itemState & ODS_SELECTED) != 0;
  const bool disabled = (item.itemState & ODS_DISABLED) != 0;
  const int text_colour = selected   ? COLOR_HIGHLIGHTTEXT
                          : disabled ? COLOR_GRAYTEXT
                                     : COLOR_WINDOWTEXT;
  const Metrics& metrics = env_->metrics;
  RECT place = item.rcItem;
  FillRect(item.hDC, &place, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  if (item.itemID < entries_.size()) {
    place.left += metrics.Scale(3);
    // Every text begins at the same place, with a picture or without.
    const bool any = std::any_of(entries_.begin(), entries_.end(),
                                 [](const Entry& each) { return each.picture.get(); });
    const Entry& entry = entries_[item.itemID];
    if (any) {
      const BitmapHandle& bitmap = entry.picture;
      if (bitmap) DrawPicture(item.hDC, bitmap.get(), place);
      place.left += metrics.Scale(kPictureWidth) + metrics.Scale(5);
    }
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, GetSysColor(text_colour));
    Calls().Draw(item.hDC, entry.text, &place,
                 DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
  }
  if (item.itemState & ODS_FOCUS) DrawFocusRect(item.hDC, &item.rcItem);
}

// As large as the place allows, in its own proportions.
void PictureCombo::DrawPicture(HDC dc, HBITMAP bitmap, const RECT& place) const {
  BITMAP facts = {};
  if (!Calls().Facts(bitmap, sizeof facts, &facts) || facts.bmWidth < 1 || facts.bmHeight < 1)
    return;
  const int most_width = env_->metrics.Scale(kPictureWidth);
  const int most_height = env_->metrics.Scale(kPictureHeight);
  int width = most_width;
  int height = std::max(1, MulDiv(width, facts.bmHeight, facts.bmWidth));
  if (height > most_height) {
    height = most_height;
    width = std::max(1, MulDiv(height, facts.bmWidth, facts.bmHeight));
  }
  const int left = place.left + (most_width - width) / 2;
  const int top = place.top + (place.bottom - place.top - height) / 2;
  const MemoryDc memory(CreateCompatibleDC(dc));
  const HGDIOBJ old = SelectObject(memory.get(), bitmap);
  SetStretchBltMode(dc, COLORONCOLOR);
  StretchBlt(dc, left, top, width, height, memory.get(), 0, 0, facts.bmWidth, facts.bmHeight,
             SRCCOPY);
  SelectObject(memory.get(), old);
}

}  // namespace scourwell
