#pragma once

#include <optional>

#include "widgets/list_view.h"

namespace scourwell {

// Draws a cell that holds a path too long for its column: the list itself would cut off the end,
// which is the part that tells most. For the custom draw of a list view in report style. `text` is
// the colour of the text where the row is not selected.
void DrawPathCell(const ListView& list, const NMLVCUSTOMDRAW& draw, const std::string& path,
                  std::optional<COLORREF> text = {});

}  // namespace scourwell
