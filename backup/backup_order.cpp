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
  std::stable_sort(rows->begin(), rows->end(), [&](const BackupRow& a, const BackupRow& b) {
    return ascending_ ? IsBefore(a, b, column_) : IsBefore(b, a, column_);
  });
}

}  // namespace scourwell
