// SPDX-License-Identifier: MIT
#include "tools/table_view.h"

#include <algorithm>

#include "text/text.h"

namespace scourwell {

// Two rows may read alike: the one that stayed where it was comes first.
void TableView::FindChosen() {
  if (!choice_) return;
  const auto is_choice = [&](std::size_t row) { return table_.Identity(row) == choice_->identity; };
  if (choice_->row < table_.size() && is_choice(choice_->row)) return;
  for (std::size_t row = 0; row < table_.size(); ++row) {
    if (!is_choice(row)) continue;
    choice_->row = row;
    return;
  }
  choice_.reset();
}

void TableView::Choose(int index) {
  choice_.reset();
  if (index < 0 || static_cast<std::size_t>(index) >= rows_.size()) return;
  const std::size_t row = rows_[static_cast<std::size_t>(index)];
  if (row < table_.size()) choice_ = Choice{row, table_.Identity(row)};
}

int TableView::Chosen() const { return choice_ ? Find(choice_->row) : -1; }

void TableView::Update() {
  FindChosen();
  rows_.clear();
  for (std::size_t row = 0; row < table_.size(); ++row) {
    if (Passes(row)) rows_.push_back(row);
  }
  if (sort_column_ < 0) return;
  std::stable_sort(rows_.begin(), rows_.end(), [&](std::size_t a, std::size_t b) {
    const int order = CompareNoCase(table_.Cell(a, sort_column_), table_.Cell(b, sort_column_));
    return ascending_ ? order < 0 : order > 0;
  });
}

void TableView::SetFilter(std::string_view text) {
  words_.clear();
  while (!(text = TrimBlanks(text)).empty()) {
    const std::size_t end = std::min(text.find(' '), text.size());
    words_.emplace_back(text.substr(0, end));
    text.remove_prefix(end);
  }
  Update();
}

void TableView::SortBy(int column) {
  ascending_ = column != sort_column_ || !ascending_;
  sort_column_ = column;
  Update();
}

bool TableView::Passes(std::size_t row) const {
  return std::all_of(words_.begin(), words_.end(), [&](const std::string& word) {
    for (int column = 0; column < table_.columns(); ++column) {
      if (FindNoCase(table_.Cell(row, column), word) != std::string::npos) return true;
    }
    return false;
  });
}

int TableView::Find(std::size_t row) const {
  const auto found = std::find(rows_.begin(), rows_.end(), row);
  return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

std::string TableView::Line(std::size_t index) const {
  std::string line;
  for (int column = 0; column < table_.columns(); ++column) {
    if (column > 0) line += '\t';
    for (const char c : table_.Cell(rows_[index], column)) {
      line += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
    }
  }
  return line;
}

}  // namespace scourwell
