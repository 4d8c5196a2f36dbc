// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "backup/backups.h"
#include "backup/ignore_list.h"
#include "definitions/list_loader.h"
#include "definitions/spy_categories.h"
#include "engine/language.h"
#include "engine/ports.h"
#include "guard/key_remover.h"
#include "results/hit_list.h"
#include "results/removal.h"
#include "results/row_rights.h"
#include "scan/scan_session.h"
#include "settings/program_store.h"
#include "settings/settings.h"
#include "tools/tool_box.h"

namespace scourwell {

// What every program of ours puts together, with windows or without: the scan, its results, backup,
// removal and the tools, over the ports of one machine.
class Engine : private LoadProgress {
 public:
  // Where failures are put on record: in the program's folder; or nowhere but with a listener, by
  // one that works on another machine and keeps nothing in its registry.
  enum class Records { File, ListenerAlone };

  // `report` hears of the phases of a scan; it may be a part of whoever owns the engine.
  Engine(const Ports& ports, const std::string& application_folder, ProgramVersion version,
         ScanReport& report, Records records = Records::File);

  // The settings as the store has them; nothing is written back.
  void LoadSettings() { settings_store_.LoadSettings(); }

  // Texts of this copy of the program that outlive the run.
  KeptTexts& store() { return store_.texts(); }
  // A portable copy keeps everything beside itself.
  bool portable() const { return store_.portable(); }
  // Whether backups would lie where a portable copy can write nothing.
  bool BackupsRefused() const;
  // What a portable copy cannot keep; empty when it can.
  std::string NotKept() const;

  // Around the two calls below and every other long one: the engine is busy, and an earlier Stop
  // does not end what the user asks for now. `caption` says what goes on.
  void BeginWork(Caption caption);
  void EndWork() { working_ = false; }
  // Whether a backup of the checked rows would hold anything.
  bool AnyToBackUp() const;
  // A backup of the checked rows. `failed_rows` of the result are rows of the results list.
  BackupReport BackUpChecked(const std::string& name, ArchiveOptions options = {});

  // What a scan that is run by `scan` finds; nothing while another is under way.
  template <class Scan>
  void RunSession(Scan&& scan) {
    if (busy()) return;
    scanning_ = true;
    const unsigned errors = log_.count();
    categories_.Load(reference_);
    scan(session_);
    all_read_ = log_.count() == errors;
    LockRefusedRows(&hits_, ports_.registry, ports_.registry64);
    progress_.loading = false;
    scanning_ = false;
  }
  // What is true of the last scan, which lists nothing.
  std::string NothingListed() const;
  // The number of the definitions' release; "0-0-0-0" without a file.
  std::string DefinitionsNumber();

  // "Scourwell 1.0 Rev.0"
  std::string Title() const;

  const Ports& ports() const { return ports_; }
  const SystemFolders& folders() const { return folders_; }
  const COpSysInfo& os() const { return os_; }
  const ProgramVersion& version() const { return version_; }
  ErrorLog& log() { return log_; }
  const Language& language() const { return language_; }
  AppSettings& settings() { return settings_; }
  const AppSettings& settings() const { return settings_; }
  ScanScope& scope() { return scope_; }
  HitList& hits() { return hits_; }
  const HitList& hits() const { return hits_; }
  const SpyCategories& categories() const { return categories_; }
  IgnoreList& ignore() { return ignore_; }
  Backups& backups() { return backups_; }
  Removal& removal() { return removal_; }
  ScanProgress& progress() { return progress_; }
  const ScanProgress& progress() const { return progress_; }
  LoadProgress& loading() { return *this; }
  MemoryScan& memory() { return memory_; }
  ReferenceFile& reference() { return reference_; }
  const ScanSession& session() const { return session_; }
  bool scanning() const { return scanning_; }
  // A scan, a backup or a removal is under way.
  bool busy() const { return scanning_ || working_; }
  ToolBox& tools() { return tools_; }

 protected:
  Settings& settings_store() { return settings_store_; }
  KeyRemover& keys() { return keys_; }

 private:
  void Begin(int maximum) override;
  void Advance() override;
  void End() override;

  Ports ports_;
  ProgramVersion version_;
  ErrorLog log_;
  COpSysInfo os_;
  SystemFolders folders_;
  AppSettings settings_;
  Language language_;
  ProgramStore store_;
  Settings settings_store_;
  IgnoreList ignore_;
  HitList hits_;
  ScanScope scope_;
  ScanProgress progress_;
  ReferenceFile reference_;
  SpyCategories categories_;
  DefinitionLists lists_;
  MemoryScan memory_;
  BuiltInLists built_in_;
  ListLoader loader_;
  ScanSession session_;
  Backups backups_;
  KeyRemover keys_;
  Removal removal_;
  ToolBox tools_;
  bool scanning_ = false;
  bool all_read_ = true;  // by the last scan
  bool working_ = false;
};

}  // namespace scourwell
