// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "widgets/button.h"
#include "widgets/layout.h"

namespace scourwell {

// Cuts what its buttons need off the bottom of an area and places them there: one group from the
// left, one from the right; in two rows where one is too narrow.
inline void PlaceButtons(Layout& layout, const Metrics& metrics, Area* area,
                         std::span<const Button* const> left,
                         std::span<const Button* const> right) {
  int width = -metrics.Gap();
  for (const auto& group : {left, right}) {
    for (const Button* button : group) width += button->width() + metrics.Gap();
  }
  Area row = area->CutBottom(metrics.ButtonHeight());
  for (const Button* button : right) {
    layout.Place(*button, row.CutRight(button->width()));
    row.CutRight(metrics.Gap());
  }
  if (width > area->width()) {
    area->CutBottom(metrics.Gap());
    row = area->CutBottom(metrics.ButtonHeight());
  }
  for (const Button* button : left) {
    layout.Place(*button, row.CutLeft(button->width()));
    row.CutLeft(metrics.Gap());
  }
}

}  // namespace scourwell
