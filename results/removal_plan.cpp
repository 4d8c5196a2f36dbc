// SPDX-License-Identifier: MIT
#include "results/removal_plan.h"

#include <algorithm>

namespace scourwell {

BackupVerdict JudgeBackup(const BackupReport& report, std::size_t rows, bool unattended) {
  BackupVerdict verdict;
  if (report.archive.ok() && report.failures.empty()) return verdict;
  verdict.ask = !unattended;
  if (verdict.ask) return verdict;
  verdict.kept.insert(report.failed_rows.begin(), report.failed_rows.end());
  for (std::size_t i = 0; !report.archive.ok() && i < rows; ++i) verdict.kept.insert(i);
  return verdict;
}

std::vector<RemovalStep> PlanRemoval(const HitList& hits,
                                     const std::unordered_set<std::size_t>& kept) {
  std::vector<RemovalStep> steps;
  for (std::size_t i = 0; i < hits.size(); ++i) {
    if (hits.row(i).checked) steps.push_back({i, kept.count(i) != 0});
  }
  std::stable_partition(steps.begin(), steps.end(), [&](const RemovalStep& step) {
    return KindOf(hits.row(step.row).finding.object) == FindingKind::Process;
  });
  return steps;
}

}  // namespace scourwell
