// SPDX-License-Identifier: MIT
#include "backup/backup_order.h"

#include <algorithm>

#include "text/text.h"

namespace scourwell {
namespace {

bool IsBefore(const BackupRow& a, const BackupRow& b, int column) {
  switch (column) {
    case BackupOrder::kDate:
      return a.modified < b.modified;
    case BackupOrder::kSize:
      return a.size < b.size;
    default:
      return CompareNoCase(a.key, b.key) < 0;
  }
}

}  // namespace

void BackupOrder::Sort(std::vector<BackupRow>* rows) const {
  if (column_ < 0) return;
  const auto before = [&](const BackupRow& a, const BackupRow& b) {
    return ascending_ ? IsBefore(a, b, column_) : IsBefore(b, a, column_);
  };
  // Each takes its place among those before it: equal ones stay as they stood.
  for (auto row = rows->begin(); row != rows->end(); ++row) {
    std::rotate(std::upper_bound(rows->begin(), row, *row, before), row, row + 1);
  }
}

}  // namespace scourwell
