// SPDX-License-Identifier: MIT
#include "backup/restore_rules.h"

#include <algorithm>
#include <string>

#include "text/caption_ids.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

// Endings of what Windows runs or loads.
constexpr const char* kPrograms[] = {
    ".exe", ".dll", ".com", ".bat", ".cmd", ".pif", ".scr", ".sys", ".drv",      ".ocx",
    ".cpl", ".vxd", ".386", ".vbs", ".vbe", ".js",  ".jse", ".wsf", ".wsh",      ".hta",
    ".lnk", ".msc", ".job", ".ax",  ".acm", ".mui", ".tsp", ".ime", ".manifest", ".local"};

// Windows 95, 98 and Me carry these out by themselves.
constexpr const char* kStartFiles[] = {"autoexec.bat", "config.sys",  "dosstart.bat",
                                       "winstart.bat", "wininit.ini", "autorun.inf"};

constexpr SpecialFolder kStartFolders[] = {SpecialFolder::StartUp, SpecialFolder::CommonStartUp};

// Parts of key paths.
constexpr const char* kStartKeys[] = {
    "Active Setup\\Installed Components",
    "Browser Helper Objects",
    "Command Processor",
    "Control Panel\\Desktop",
    "Control\\Lsa",
    "Control\\Print\\Monitors",
    "Control\\SecurityProviders",
    "Control\\Session Manager",
    "CurrentVersion\\Run",
    "CurrentVersion\\RunOnce",
    "CurrentVersion\\RunOnceEx",
    "CurrentVersion\\RunServices",
    "CurrentVersion\\RunServicesOnce",
    "Environment",
    "Explorer\\Run",
    "Explorer\\SharedTaskScheduler",
    "Explorer\\Shell Folders",
    "Explorer\\ShellExecuteHooks",
    "Explorer\\User Shell Folders",
    "Image File Execution Options",
    "InprocServer32",
    "LocalServer32",
    "ShellServiceObjectDelayLoad",
    "System\\Scripts",
    "Windows NT\\CurrentVersion\\Drivers32",
    "Windows NT\\CurrentVersion\\Windows",
    "Windows NT\\CurrentVersion\\Winlogon",
    "command",
    "ControlSet\\Services",
};

bool IsProgram(std::string_view path) {
  return std::ranges::any_of(kPrograms,
                             [&](const char* ending) { return EndsWithNoCase(path, ending); });
}

Outcome Refused(const char* why) {
  return Outcome::Failed(kPermissionDenied, std::string("The backup was made elsewhere: ") + why)
      .Because(Caption::BackupMadeElsewhere);
}

}  // namespace

Outcome RestoreRules::Allow(const std::string& path,
                            std::vector<std::unique_ptr<FolderHold>>* holds) {
  HeldWay way;
  std::string real;
  if (Outcome allowed = guard_.Allow(path, &way, &real); !allowed.ok()) return allowed;
  const auto lies_in = [&](const std::string& folder) {
    return !folder.empty() && IsAtOrBelow(real, std::string(WithoutEndSeparators(folder)));
  };
  if (foreign_) {
    for (const SpecialFolder folder : kStartFolders) {
      if (lies_in(folders_.Special(folder))) return Refused("it would start at the next logon");
    }
    const bool starts = std::ranges::any_of(
        kStartFiles, [&](const char* name) { return EqualsNoCase(FileNamePart(real), name); });
    if (starts) return Refused("Windows carries this file out");
    const bool in_windows =
        lies_in(folders_.windows) || lies_in(folders_.system) || lies_in(folders_.system_wow64);
    const bool in_root = FolderPart(real).size() + 1 <= RootSize(real);
    if ((in_windows || in_root) && IsProgram(real)) {
      return Refused("a program may not go into this folder");
    }
  }
  for (auto& hold : way) holds->push_back(std::move(hold));
  return {};
}

bool StartsPrograms(std::string_view full_key_path) {
  std::string path;
  // Each control set is one, and both ends of a part are seen.
  for (std::string_view rest = full_key_path; !rest.empty();) {
    const std::string_view part = TakePart(&rest);
    path += kSeparator;
    path += FindNoCase(part, "ControlSet") == part.npos ? part : std::string_view("ControlSet");
  }
  path += kSeparator;
  return std::ranges::any_of(kStartKeys, [&](const char* key) {
    return FindNoCase(path, kSeparator + std::string(key) + kSeparator) != path.npos;
  });
}

}  // namespace scourwell
