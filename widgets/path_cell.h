// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>

#include "widgets/list_view.h"

namespace scourwell {

// A list draws itself in stages, each of which asks what comes next; the cells are the last.
// Returns the answer to a stage before them, none when `draw` is about a cell.
std::optional<LRESULT> BeforeCells(const NMLVCUSTOMDRAW& draw);

// Draws a cell that holds a path too long for its column: the list itself would cut off the end,
// which is the part that tells most. For the custom draw of a list view in report style. `text` is
// the colour of the text where the row is not selected.
void DrawPathCell(const ListView& list, const NMLVCUSTOMDRAW& draw, const std::string& path,
                  std::optional<COLORREF> text = {});

// The whole answer to the custom draw of a list of `rows` rows whose `column` holds paths.
LRESULT DrawPathColumn(const ListView& list, const NMLVCUSTOMDRAW& draw, int column,
                       std::size_t rows, const std::function<std::string(std::size_t row)>& path);

}  // namespace scourwell
