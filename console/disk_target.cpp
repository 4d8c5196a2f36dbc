// SPDX-License-Identifier: MIT
#include "console/disk_target.h"

#include "console/linux_paths.h"
#include "text/paths.h"

namespace scourwell {

DiskTarget::DiskTarget(std::unique_ptr<OfflineMachine> machine, ProgramVersion version, Pump& pump,
                       ScanReport& report)
    : machine_(std::move(machine)), pump_(pump), report_(report) {
  application_ = OwnPath(UserFolder());
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
std::string DiskTarget::OwnPath(const std::string& path) {
  const std::string real = RealLinuxPath(path);
  if (real.empty()) return {};
  const std::string folder = LinuxFolder(real);
  std::string& root = adopted_[folder];
  if (root.empty()) root = machine_->files().Adopt(folder);
  if (root.empty()) return {};
  const std::string below = machine_->files().FromLinux(real);
  return below.empty() ? AddPathToFileName(root, LinuxName(real)) : below;
}

std::string DiskTarget::WhyNoRemoval() const {
  return machine_->read_only() ? "the disk is mounted read-only" : "";
}

// A key of one user means the same only to that user: its name becomes the one that all share.
void DiskTarget::BeforeRemoval() {
  HitList& hits = engine_->hits();
  std::vector<HitList::Row> rows;
  for (std::size_t i = 0; i < hits.size(); ++i) rows.push_back(hits.row(i));
  hits.Clear();
  for (const HitList::Row& row : rows) {
    const std::size_t before = hits.size();
    hits.AddSpyToListView(machine_->ForEveryone(row.finding));
    if (hits.size() > before) hits.SetChecked(before, row.checked);
  }
}

std::vector<UnreadPlace> DiskTarget::Unread() const {
  std::vector<UnreadPlace> unread;
  for (const auto& [place, reason] : machine_->unread()) unread.push_back({place, reason});
  return unread;
}

}  // namespace scourwell
