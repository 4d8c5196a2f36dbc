// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "backup/backups.h"

namespace scourwell {

// In which order the backup manager shows the backups: as they were listed, until the header of a
// column was clicked. Dates and sizes compare as such, names without case.
class BackupOrder {
 public:
  enum Column { kDate, kName, kSize };

  // A click on a column's header: ascending first, the other way at the next click.
  void SortBy(Column column) {
    ascending_ = column != column_ || !ascending_;
    column_ = column;
  }
  void Sort(std::vector<BackupRow>* rows) const;

  int column() const { return column_; }  // -1: none
  bool ascending() const { return ascending_; }

 private:
  int column_ = -1;
  bool ascending_ = true;
};

}  // namespace scourwell
