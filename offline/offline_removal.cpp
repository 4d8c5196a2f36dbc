// SPDX-License-Identifier: MIT
#include "offline/offline_removal.h"

#include <algorithm>

#include "backup/ignore_list.h"
#include "guard/path_guard.h"
#include "results/hit_list.h"
#include "results/removal_plan.h"
#include "text/paths.h"

namespace scourwell {
namespace {

constexpr char kScript[] = "Remove.reg";
constexpr char kNoList[] = "no such list";  // what is given was chosen already

bool IsInRegistry(const FoundObject& object) {
  return std::holds_alternative<FoundKey>(object) || std::holds_alternative<FoundValue>(object);
}

}  // namespace

// A finding on its way.
struct OfflineRemoval::Row {
  Finding finding;
  bool kept = false;  // it could not be backed up, or must stay
  RemovalResult result = {};
};

OfflineRemoval::OfflineRemoval(Parts parts)
    : parts_(std::move(parts)),
      kept_(parts_.machine, parts_.kept),
      backups_({parts_.machine.files(), parts_.machine.registry(), parts_.machine.registry64(),
                parts_.clock, parts_.pump, parts_.machine.shell(), parts_.machine.system(), kept_,
                parts_.log, parts_.machine.code_pages(), parts_.machine.os(), folders_,
                parts_.settings}) {
  parts_.settings.BackupFolder = parts_.folder;
  parts_.settings.MarkChecked = "y";
  // Nothing there is in use, and no start of Windows is near.
  parts_.settings.DeleteAfterReboot = false;
  parts_.settings.UseRegEdit = false;
  for (const OfflineUser& user : parts_.machine.users()) {
    parts_.machine.ActAs(&user);
    users_.push_back(parts_.machine.Folders(parts_.log, parts_.folder));
  }
  parts_.machine.ActAs(nullptr);
  if (users_.empty()) users_.push_back(parts_.machine.Folders(parts_.log, parts_.folder));
  folders_ = users_.front();
}

Outcome OfflineRemoval::MayBegin() const {
  if (!parts_.machine.read_only()) return {};
  return Outcome::Failed(kPermissionDenied, "The disk can only be read");
}

// What Windows needs of one user's folders must not go because another is acted as.
Outcome OfflineRemoval::JudgeForEverybody(const FoundObject& object) {
  const auto* folder = std::get_if<FoundFolder>(&object);
  if (!folder) return {};
  for (const SystemFolders& folders : users_) {
    HeldWay way;
    Outcome allowed = PathGuard(parts_.machine.files(), folders).Allow(folder->path, &way);
    if (!allowed.ok()) return allowed;
  }
  return {};
}

OfflineRemoval::Result OfflineRemoval::Remove(const std::string& name,
                                              const std::vector<Finding>& findings) {
  Result result;
  parts_.machine.ActAs(nullptr);
  parts_.machine.ShowUserOnly(false);
  std::vector<Row> rows;
  std::vector<const Finding*> stored;
  const std::size_t unread = parts_.machine.unread().size();
  for (const Finding& finding : findings) rows.push_back({parts_.machine.ForEveryone(finding)});
  for (const Row& row : rows) stored.push_back(&row.finding);
  result.backup = backups_.Create(name, stored);
  const BackupVerdict verdict = JudgeBackup(result.backup, rows.size(), true);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    Row& row = rows[i];
    if (verdict.kept.contains(i)) {
      row.kept = true;
      row.result = {RemovalState::Failed,
                    Outcome::Failed(kPathFileAccess, "It could not be backed up")};
    } else if (Outcome judged = JudgeForEverybody(row.finding.object); !judged.ok()) {
      row.kept = true;
      row.result = {RemovalState::Refused, std::move(judged)};
    }
  }
  Delete(&rows, &result);
  if (parts_.machine.unread().size() > unread) DoubtGone(&rows);
  SaveRegistry(&rows, &result);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    RemovalResult& each = rows[i].result;
    result.removal.failed = result.removal.failed || !each.done();
    result.removal.objects.push_back({findings[i].spy, findings[i].object, std::move(each)});
  }
  return result;
}

void OfflineRemoval::Delete(std::vector<Row>* rows, Result* result) {
  PosixFiles& files = parts_.machine.files();
  IgnoreList ignore(files, parts_.clock, parts_.machine.code_pages(), kept_, parts_.log,
                    AddPathToFileName(parts_.folder, kNoList));
  HitList hits(ignore, parts_.settings, parts_.captions, parts_.log);
  std::vector<Row*> listed;
  for (Row& row : *rows) {
    if (row.kept) continue;
    hits.AddSpyToListView(row.finding);
    listed.push_back(&row);
  }
  hits.CheckAll(true);
  Removal removal({{files, parts_.machine.system(), parts_.machine.shell(), parts_.pump, parts_.log,
                    parts_.machine.code_pages(), parts_.machine.os(), folders_, parts_.settings,
                    parts_.machine.registry()},
                   parts_.machine.processes(),
                   parts_.machine.registry64(),
                   parts_.captions,
                   hits});
  removal.RemoveSelectedSpy();
  const std::vector<RemovedObject>& objects = removal.report().objects;
  result->stopped = objects.size() < listed.size();
  for (std::size_t i = 0; i < hits.size() && i < listed.size(); ++i) {
    listed[i]->result = hits.row(i).result.value_or(
        RemovalResult{RemovalState::Failed, Outcome::Failed(kInvalidCall, "It was not tried")});
  }
}

// A scan gives the files of each user back: one that can be read no more makes all of it seem gone.
void OfflineRemoval::DoubtGone(std::vector<Row>* rows) {
  const Outcome why = Outcome::Failed(
      kPathFileAccess, "The registry could not be read: " + parts_.machine.unread().back().reason);
  for (Row& row : *rows) {
    if (row.result.state != RemovalState::Gone || !IsInRegistry(row.finding.object)) continue;
    row.result = {RemovalState::Failed, why};
  }
}

void OfflineRemoval::SaveRegistry(std::vector<Row>* rows, Result* result) {
  const std::string script = AddPathToFileName(parts_.folder, kScript);
  if (parts_.machine.registry_writable()) {
    // The script is for those who do without us.
    static_cast<void>(parts_.machine.files().EraseFile(script));
    result->registry = parts_.machine.SaveRegistry();
    if (result->registry.ok()) return;
  }
  const Outcome why =
      parts_.machine.registry_writable()
          ? Outcome::Failed(result->registry.code(),
                            "The registry could not be saved: " + result->registry.description())
          : Outcome::Failed(
                kPermissionDenied,
                "It can only be removed on the machine itself: see " + std::string(kScript));
  bool any = false;
  for (Row& row : *rows) {
    if (row.kept || !IsInRegistry(row.finding.object)) continue;
    if (row.result.state == RemovalState::Gone || row.result.state == RemovalState::Refused) {
      continue;
    }
    row.result = {RemovalState::Failed, why};
    any = true;
  }
  if (any && !parts_.machine.registry_writable()) result->script = script;
}

Outcome OfflineRemoval::Restore(RestoreRun& run, const std::vector<bool>& chosen,
                                RestoreResult* result) {
  if (Outcome may = MayBegin(); !may.ok()) return may;
  Outcome restored = backups_.Restore(run, chosen, result);
  Outcome saved = parts_.machine.SaveRegistry();
  return restored.ok() ? std::move(saved) : std::move(restored);
}

}  // namespace scourwell
