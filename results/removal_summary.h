// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "results/removal.h"
#include "text/captions.h"

namespace scourwell {

// The list of the removal summary: one row an object, what is still there first. Outlived by the
// report.
class RemovalSummary {
 public:
  enum Column { kType, kSystem, kDetails, kState };

  RemovalSummary(const Captions& captions, const RemovalReport& report);

  std::size_t size() const { return rows_.size(); }
  const FoundObject& object(std::size_t row) const { return rows_[row]->object; }
  const RemovalResult& result(std::size_t row) const { return rows_[row]->result; }
  std::string Text(std::size_t row, Column column) const;
  // "3 removed, 1 failed"
  std::string Counts() const;

  // A click on a column's header: ascending first, the other way at each next click on it.
  void SortBy(Column column);
  Column sort_column() const { return sort_column_; }
  bool ascending() const { return ascending_; }

 private:
  void Sort();

  const Captions& captions_;
  const RemovalReport& report_;
  std::vector<const RemovedObject*> rows_;
  Column sort_column_ = kState;
  bool ascending_ = true;
};

}  // namespace scourwell
