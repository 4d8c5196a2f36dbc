// SPDX-License-Identifier: MIT
#include "console/linux_host.h"

#include "console/disk_target.h"
#include "console/folder_target.h"
#include "console/linux_paths.h"
#include "console/option_table.h"

namespace scourwell {
namespace {

constexpr unsigned kNeedDisk = kRestore | kStartup;

std::vector<MountedDrive> DrivesOf(const Options& options) {
  std::vector<MountedDrive> drives;
  if (!options.windows.empty()) drives.push_back({'C', options.windows});
  for (const std::string& drive : options.drives) {
    drives.push_back({static_cast<char>(drive[0] & ~0x20), drive.substr(2)});
  }
  return drives;
}

std::string SeveralWindows(const std::vector<MountedDrive>& drives) {
  std::string text = "the disk has several Windows; choose one with --windows-folder:";
  std::vector<WindowsFound> found;
  if (!OfflineMachine::Find(drives, &found).ok()) return text;
  for (const WindowsFound& windows : found)
    text += "\n  " + windows.folder + "  " + windows.version;
  return text;
}

std::unique_ptr<Target> OpenDisk(const std::vector<MountedDrive>& drives, const Options& options,
                                 ProgramVersion version, Pump& pump, ScanReport& report,
                                 std::string* why) {
  std::unique_ptr<OfflineMachine> machine;
  const Outcome opened = OfflineMachine::Open(drives, options.windows_folder, &machine);
  if (opened.ok()) {
    return std::make_unique<DiskTarget>(std::move(machine), version, pump, report);
  }
  *why = opened.code() == kFileNotFound   ? "there is no Windows on the disk"
         : opened.code() == kTypeMismatch ? SeveralWindows(drives)
                                          : opened.description();
  return nullptr;
}

// What the options say of our own files. Empty when it can be done.
std::string UseOwnFiles(const Options& options, Target* target) {
  Engine& engine = target->engine();
  const std::string definitions =
      options.definitions.empty() ? FindDefinitions() : options.definitions;
  if (!definitions.empty()) {
    if (!IsLinuxFile(definitions)) return "no such file: " + definitions;
    engine.reference().Use(target->OwnPath(definitions));
  }
  const std::string& folder = options.backup_folder;
  engine.settings().BackupFolder = target->OwnFolder(folder.empty() ? UserFolder() : folder);
  if (!folder.empty() && engine.settings().BackupFolder.empty()) {
    return "no such folder: " + folder;
  }
  return "";
}

}  // namespace

std::string LinuxHost::Version() const {
  return std::to_string(version_.major) + "." + std::to_string(version_.minor) + "." +
         std::to_string(version_.revision);
}

std::string LinuxHost::Missing(const Options& options) const {
  if (options.disable || options.enable) return "startup entries of a disk can only be listed";
  if (!options.windows.empty() || !options.drives.empty()) return "";
  if ((options.command->bit & kNeedDisk) != 0) return "name a Windows disk by --windows or --drive";
  const bool scans = (options.command->bit & (kScan | kRemove)) != 0;
  return scans && options.words.empty() ? "name what to scan: a PATH, --windows or --drive" : "";
}

std::unique_ptr<Target> LinuxHost::Open(const Options& options, Pump& pump, ScanReport& report,
                                        std::string* why) {
  const std::vector<MountedDrive> drives = DrivesOf(options);
  if (options.add || !drives.empty()) MakeLinuxFolder(UserFolder());
  std::unique_ptr<Target> target;
  if (!drives.empty()) {
    target = OpenDisk(drives, options, version_, pump, report, why);
  } else {
    target = std::make_unique<FolderTarget>(version_, pump, report);
  }
  if (!target) return nullptr;
  target->engine().LoadSettings();
  *why = UseOwnFiles(options, target.get());
  return why->empty() ? std::move(target) : nullptr;
}

}  // namespace scourwell
