// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <unordered_set>
#include <vector>

#include "backup/backups.h"
#include "results/hit_list.h"

namespace scourwell {

// What a removal is going to do, decided before anything is deleted.
//
// Example: a file, its running program and a key are checked, the list is sorted by name, and the
// file could not be backed up. Unattended, nobody can be asked, so the file stays. The plan is:
//   end the program   (what runs could not be deleted, so programs go first)
//   leave the file    ("It could not be backed up")
//   delete the key
// and the registry editor's script holds the key alone.

// What a backup before a removal means for it.
struct BackupVerdict {
  bool ask = false;                      // whether to go on all the same
  std::unordered_set<std::size_t> kept;  // rows of the list that stay
};

// `rows`: of the whole list. Where nobody can be asked, what could not be stored stays; without an
// archive that is everything.
BackupVerdict JudgeBackup(const BackupReport& report, std::size_t rows, bool unattended);

struct RemovalStep {
  std::size_t row;
  bool kept;  // it stays, and the report says why
};

// The checked rows in the order of their removal: running programs first, however the list is
// sorted, then everything else as it stands in the list.
std::vector<RemovalStep> PlanRemoval(const HitList& hits,
                                     const std::unordered_set<std::size_t>& kept);

}  // namespace scourwell
