// SPDX-License-Identifier: MIT
#include "engine/engine.h"

#include "machine/file_utils.h"

namespace scourwell {

Engine::Engine(const Ports& ports, const std::string& application_folder, ProgramVersion version,
               ScanReport& report, Records records)
    : ports_(ports),
      version_(version),
      log_(ports.files, ports.clock, ports.code_pages,
           records == Records::File ? FullPath_With_Filename(application_folder, "errorlog.txt")
                                    : std::string()),
      os_(ports.system),
      folders_(ComputeSystemFolders(ports.system, ports.registry, os_, log_, application_folder)),
      language_(ports.files, ports.clock, ports.code_pages, log_, settings_, application_folder),
      store_(
          ports.files, ports.registry, ports.code_pages, application_folder,
          records == Records::File ? ProgramStore::Home::OfProgram : ProgramStore::Home::OwnFile),
      settings_store_({store_.texts(), ports.registry, ports.profiles, ports.files, ports.clock,
                       ports.code_pages, log_, folders_, version},
                      settings_),
      ignore_(ports.files, ports.clock, ports.code_pages, store_.texts(), log_,
              AddPathToFileName(application_folder, "ignorespylist.txt")),
      hits_(ignore_, settings_, language_, log_),
      reference_(ports.files, ports.clock, log_, settings_, application_folder),
      memory_({ports.processes, ports.system, ports.pump, log_, os_, folders_, hits_, progress_,
               ports.files}),
      built_in_(lists_, folders_, ports.pump, log_),
      loader_(reference_, lists_, *this, ports.pump, log_, folders_),
      session_({ports.files, ports.registry, ports.registry64, ports.pump, log_, ports.shell,
                language_, settings_, lists_, built_in_, loader_, memory_, ports.versions, os_,
                folders_, hits_, report, progress_}),
      backups_({ports.files, ports.registry, ports.registry64, ports.clock, ports.pump, ports.shell,
                ports.system, store_.texts(), log_, ports.code_pages, os_, folders_, settings_}),
      keys_(ports.registry, log_,
            [this] {
              ports_.shell.Message(language_.Text(Caption::RegistryKeyAccessDenied),
                                   language_.Text(Caption::AccessDenied));
            }),
      removal_({{ports.files, ports.system, ports.shell, ports.pump, log_, ports.code_pages, os_,
                 folders_, settings_, ports.registry},
                ports.processes,
                ports.registry64,
                language_,
                hits_}),
      tools_({ports.files, ports.registry, ports.registry64, ports.profiles, ports.shell,
              ports.system, ports.code_pages, folders_},
             ports.versions, reference_, log_, language_) {}

void Engine::BeginWork(Caption caption) {
  ports_.pump.set_closing(false);
  progress_.lblScanStatus = language_.Text(caption);
  working_ = true;
}

bool Engine::AnyToBackUp() const {
  for (std::size_t i = 0; i < hits_.size(); ++i) {
    if (hits_.row(i).checked && backups_.Needs(hits_.row(i).finding.object)) return true;
  }
  return false;
}

bool Engine::BackupsRefused() const {
  return store_.read_only() && !CanWriteIn(ports_.files, settings_.BackupFolder);
}

std::string Engine::NotKept() const {
  return store_.read_only() ? language_.Text(Caption::PortableNotKept) : std::string();
}

BackupReport Engine::BackUpChecked(const std::string& name, ArchiveOptions options) {
  if (scanning_) return {Outcome::Failed(kPermissionDenied), {}, {}};
  std::vector<const Finding*> rows;
  std::vector<std::size_t> indexes;
  for (std::size_t i = 0; i < hits_.size(); ++i) {
    if (!hits_.row(i).checked) continue;
    rows.push_back(&hits_.row(i).finding);
    indexes.push_back(i);
  }
  BackupReport report = backups_.Create(name, rows, std::move(options));
  for (std::size_t& row : report.failed_rows) row = indexes[row];
  return report;
}

std::string Engine::NothingListed() const {
  const auto excluded = hits_.counters().ignored;
  if (!session_.finished()) return language_.Text(Caption::ScanStoppedEarly);
  if (!reference_.readable()) return language_.Text(Caption::ScanBuiltInOnly);
  if (excluded > 0) {
    return language_.Text(Caption::ScanAllExcluded) + " " + std::to_string(excluded);
  }
  return language_.Text(all_read_ ? Caption::NoSpywareFound : Caption::ScanNotAllRead);
}

std::string Engine::DefinitionsNumber() {
  std::string number = reference_.updateListfromINI("SETTINGS", "UPDATE-FILE-NUMBER");
  return number.empty() ? "0-0-0-0" : number;
}

std::string Engine::Title() const {
  return language_.Text(Caption::ProgramName) + " " + std::to_string(version_.major) + "." +
         std::to_string(version_.minor) + " " + language_.Text(Caption::Revision) +
         std::to_string(version_.revision);
}

void Engine::Begin(int maximum) {
  progress_.loading = true;
  progress_.load_maximum = maximum;
  progress_.load_done = 0;
}

void Engine::Advance() { ++progress_.load_done; }

void Engine::End() { progress_.loading = false; }

}  // namespace scourwell
