// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "definitions/builtin_lists.h"
#include "definitions/list_loader.h"
#include "machine/op_sys_info.h"
#include "platform/registry.h"
#include "platform/shell.h"
#include "scan/drive_scan.h"
#include "scan/memory_scan.h"
#include "scan/registry_scan.h"
#include "scan/scan_report.h"
#include "settings/app_settings.h"
#include "text/captions.h"

namespace scourwell {

// One run over the ticked scope, phase by phase. Everything happens inside the calls; the pump
// lets the windows live meanwhile, and its closing flag ends every loop.
class ScanSession {
 public:
  struct Parts {
    Files& files;
    Registry& registry;
    Registry* registry64;  // the 64-bit view; null where there is only one
    Pump& pump;
    ErrorLog& log;
    Shell& shell;
    const Captions& captions;
    const AppSettings& settings;
    DefinitionLists& lists;
    BuiltInLists& built_in;
    ListLoader& loader;
    MemoryScan& memory;
    Versions& versions;
    const COpSysInfo& os;
    const SystemFolders& folders;
    FindingSink& sink;
    ScanReport& report;
    ScanProgress& progress;
  };

  explicit ScanSession(const Parts& parts) : parts_(parts) {}

  // Scans what is ticked. A stopped scan ends without log and finish.
  void StartScan(const ScanScope& scope);
  // The two passes over folders (or files) instead of the drives.
  void ScanFolders(const std::vector<std::string>& paths);

  // True when the last scan came to its end.
  bool finished() const { return finished_; }

 private:
  void Begin();
  Outcome FindPath(const std::string& path) const;
  void ScanNode(const ScanScope& scope, std::size_t number);
  void ScanMemory();
  void ScanRegistry(const ScanScope& scope);
  void ScanRegistryView(Registry& registry, RegistryView view, bool quick, bool deep);
  void ScanCookies();
  void ScanDrivesForAll(const ScanScope& scope);
  void ScanDrivesForAllFolders();
  std::vector<DefinitionList<FixedPlace>> LoadFileRows();
  void ScanDrivesForAllFiles(const std::vector<DefinitionList<FixedPlace>>& places);
  AdvancedScan MakeAdvancedScan() const;
  template <class FolderPass>
  void BothPasses(FolderPass&& folder_pass);
  void StartPhase(Caption caption);
  void StartPass(Caption caption);
  void Finish();

  Parts parts_;
  bool finished_ = false;
};

}  // namespace scourwell
