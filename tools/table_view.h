// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scourwell {

// Rows of texts, as a list shows them.
class TableModel {
 public:
  virtual ~TableModel() = default;
  virtual std::size_t size() const = 0;
  virtual int columns() const = 0;
  // Valid until the table changes.
  virtual const std::string& Cell(std::size_t row, int column) const = 0;
  // What a row has in common with itself after the table was read anew, and with no other.
  virtual std::string Identity(std::size_t row) const = 0;
};

// What of a table is shown, and in which order: the rows that hold the filter's text, sorted by a
// column, both without case. The view keeps row numbers; Update after every change of the table.
// One row may be chosen: it stays so wherever the table or the order puts it, and no other takes
// its place.
class TableView {
 public:
  explicit TableView(const TableModel& table) : table_(table) { Update(); }

  void Update();
  // By where it is shown; -1: none.
  void Choose(int index);
  // Where the chosen row is shown; -1 when none is, or it is not shown.
  int Chosen() const;
  // Every word must occur in some column.
  void SetFilter(std::string_view text);
  // A click on a column's header: ascending first, the other way at the next click.
  void SortBy(int column);

  std::size_t size() const { return rows_.size(); }
  std::size_t Row(std::size_t index) const { return rows_[index]; }
  // Where a row of the table is shown; -1 when it is not.
  int Find(std::size_t row) const;
  int sort_column() const { return sort_column_; }  // -1: as the table stands
  bool ascending() const { return ascending_; }

  // All columns with tabs between them, to be copied; control characters become blanks.
  std::string Line(std::size_t index) const;

 private:
  void FindChosen();
  bool Passes(std::size_t row) const;

  struct Choice {
    std::size_t row;
    std::string identity;
  };

  const TableModel& table_;
  std::optional<Choice> choice_;
  std::vector<std::string> words_;
  int sort_column_ = -1;
  bool ascending_ = true;
  std::vector<std::size_t> rows_;
};

}  // namespace scourwell
