// SPDX-License-Identifier: MIT
#include "console/windows_host.h"

#include "engine/caption_table.h"
#include "machine/file_utils.h"

namespace scourwell {
namespace {

class WindowsTarget : public Target {
 public:
  WindowsTarget(const Ports& ports, FullPath full_path, const std::string& application_folder,
                ProgramVersion version, ScanReport& report)
      : full_path_(full_path), engine_(ports, application_folder, version, report) {}

  Engine& engine() override { return engine_; }

  bool Scan(const ScanScope& scope, const std::vector<std::string>& paths) override {
    engine_.RunSession([&](ScanSession& session) {
      if (paths.empty()) {
        session.StartScan(scope);
      } else {
        session.ScanFolders(paths);
      }
    });
    return engine_.session().finished();
  }

  std::string ScannedPath(const std::string& path) override { return full_path_(path); }
  std::string OwnPath(const std::string& path) override { return full_path_(path); }

 private:
  FullPath full_path_;
  Engine engine_;
};

}  // namespace

std::string WindowsHost::Version() const {
  return std::to_string(version_.major) + "." + std::to_string(version_.minor) + "." +
         std::to_string(version_.revision);
}

std::unique_ptr<Target> WindowsHost::Open(const Options& options, Pump& pump, ScanReport& report,
                                          std::string* why) {
  if (!options.windows.empty() || !options.drives.empty()) {
    *why = "disks of machines that do not run are scanned under Linux";
    return nullptr;
  }
  const Ports ports = {machine_.files,      machine_.registry,
                       machine_.registry64, machine_.profiles,
                       machine_.clock,      machine_.system,
                       machine_.shell,      machine_.versions,
                       machine_.processes,  pump,
                       machine_.code_pages};
  auto target =
      std::make_unique<WindowsTarget>(ports, full_path_, application_folder_, version_, report);
  Engine& engine = target->engine();
  engine.LoadSettings();
  if (!engine.NotKept().empty()) {
    terminal_.WriteError("scourwell: " + std::string(DefaultCaption(Caption::PortableNotKept)) +
                         "\n");
  }
  if (!options.definitions.empty()) {
    const std::string file = full_path_(options.definitions);
    if (!FileExists(machine_.files, file)) {
      *why = "no such file: " + options.definitions;
      return nullptr;
    }
    engine.reference().Use(file);
  }
  if (!options.backup_folder.empty()) {
    engine.settings().BackupFolder = full_path_(options.backup_folder);
  }
  return target;
}

}  // namespace scourwell
