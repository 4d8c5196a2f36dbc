// SPDX-License-Identifier: MIT
#include "console/target.h"

#include "results/removal_plan.h"

namespace scourwell {

RemovalNotes Target::RemoveChecked(const std::string& backup_name) {
  Engine& engine = this->engine();
  RemovalNotes notes;
  std::unordered_set<std::size_t> kept;
  if (engine.AnyToBackUp()) {
    engine.BeginWork(Caption::BackupInProgress);
    const BackupReport report = engine.BackUpChecked(backup_name);
    engine.EndWork();
    if (engine.ports().pump.closing()) return notes;
    notes.backed_up = report.archive.ok();
    if (!notes.backed_up) notes.lines.push_back("no backup: " + report.archive.description());
    for (const std::string& failure : FailureTexts(engine.language(), report)) {
      notes.lines.push_back("not stored: " + failure);
    }
    kept = JudgeBackup(report, engine.hits().size(), true).kept;
  }
  engine.BeginWork(Caption::DeletingInProgress);
  engine.removal().RemoveSelectedSpy(kept);
  engine.removal().launchRegEditDelete();
  engine.EndWork();
  return notes;
}

Outcome Target::Restore(RestoreRun& run, const std::vector<bool>& chosen, RestoreResult* result) {
  return backups().Restore(run, chosen, result);
}

}  // namespace scourwell
