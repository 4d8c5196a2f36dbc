// SPDX-License-Identifier: MIT
#include "console/disk_target.h"

#include <algorithm>

#include "console/linux_paths.h"
#include "text/paths.h"

namespace scourwell {

DiskTarget::DiskTarget(std::unique_ptr<OfflineMachine> machine, ProgramVersion version, Pump& pump,
                       ScanReport& report)
    : machine_(std::move(machine)), pump_(pump), report_(report) {
  application_ = OwnFolder(UserFolder());
  const Ports ports = {machine_->files(),
                       machine_->registry(),
                       machine_->registry64(),
                       profiles_,
                       clock_,
                       machine_->system(),
                       machine_->shell(),
                       machine_->versions(),
                       machine_->processes(),
                       pump,
                       machine_->code_pages()};
  engine_ = std::make_unique<Engine>(ports, application_, version, report,
                                     Engine::Records::ListenerAlone);
}

bool DiskTarget::Scan(const ScanScope& scope, const std::vector<std::string>& paths) {
  Engine& engine = *engine_;
  OfflineScan scan({*machine_, pump_, engine.log(), engine.language(), engine.settings(),
                    engine.reference(), engine.hits(), report_, engine.progress(), engine.loading(),
                    application_});
  engine.RunSession([&](ScanSession&) {
    if (paths.empty()) {
      scan.StartScan(scope);
    } else {
      scan.ScanFolders(paths);
    }
  });
  return scan.finished();
}

// As the disk spells it, or as this machine does.
std::string DiskTarget::ScannedPath(const std::string& path) {
  if (IsAbsolutePath(path)) return path;
  const std::string real = RealLinuxPath(path);
  return real.empty() ? std::string() : machine_->files().FromLinux(real);
}

// The folder becomes one more drive: our own files lie beside the disk, never on it.
std::string DiskTarget::OwnFolder(const std::string& path) {
  const std::string real = RealLinuxPath(path);
  if (real.empty()) return {};
  std::string& root = adopted_[real];
  if (root.empty()) root = machine_->files().Adopt(real);
  return root;
}

std::string DiskTarget::OwnPath(const std::string& path) {
  const std::string real = RealLinuxPath(path);
  const std::string root = real.empty() ? real : OwnFolder(LinuxFolder(real));
  return root.empty() ? root : AddPathToFileName(root, LinuxName(real));
}

OfflineRemoval& DiskTarget::Remover() const {
  if (!removal_) {
    Engine& engine = *engine_;
    removal_ = std::make_unique<OfflineRemoval>(OfflineRemoval::Parts{
        *machine_, engine.ports().clock, pump_, engine.log(), engine.language(), engine.settings(),
        engine.store(), engine.settings().BackupFolder});
  }
  return *removal_;
}

std::string DiskTarget::WhyNoRemoval() const {
  const Outcome may = Remover().MayBegin();
  return may.ok() ? std::string() : may.description();
}

RemovalNotes DiskTarget::RemoveChecked(const std::string& backup_name) {
  HitList& hits = engine_->hits();
  const std::vector<std::size_t> rows = hits.CheckedRows();
  std::vector<Finding> findings;
  for (const std::size_t row : rows) findings.push_back(hits.row(row).finding);
  const OfflineRemoval::Result result = Remover().Remove(backup_name, findings);
  const std::vector<RemovedObject>& objects = result.removal.objects;
  for (std::size_t i = 0; i < std::min(rows.size(), objects.size()); ++i) {
    hits.Settle(rows[i], objects[i].result);
  }
  RemovalNotes notes;
  notes.backed_up = result.backup.archive.ok();
  if (!notes.backed_up) notes.lines.push_back("no backup: " + result.backup.archive.description());
  for (const std::string& failure : FailureTexts(engine_->language(), result.backup)) {
    notes.lines.push_back("not stored: " + failure);
  }
  if (notes.backed_up && machine_->registry_writable()) {  // older systems know no rights
    notes.lines.push_back(
        "the backup keeps no access rights; what is restored takes those of the folder or key "
        "above");
  }
  if (!result.registry.ok()) {
    notes.lines.push_back("the registry was not changed: " + result.registry.description());
  }
  if (!result.script.empty()) {
    notes.lines.push_back("to be run on the machine itself: " +
                          machine_->files().ToLinux(result.script));
  }
  notes.failed = !result.registry.ok();
  return notes;
}

std::vector<UnreadPlace> DiskTarget::Unread() const {
  std::vector<UnreadPlace> unread;
  for (const auto& [place, reason] : machine_->unread()) unread.push_back({place, reason});
  return unread;
}

}  // namespace scourwell
