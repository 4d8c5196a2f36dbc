// SPDX-License-Identifier: MIT
#include "tools/adware_uninstaller.h"

#include <algorithm>

#include "definitions/list_loader.h"
#include "machine/environment.h"
#include "machine/reasons.h"
#include "machine/registry_place.h"
#include "text/text.h"
#include "tools/startup_locations.h"

namespace scourwell {
namespace {

constexpr char kUninstall[] = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall";
constexpr Caption kUninstallerColumns[] = {Caption::ColumnProgram, Caption::ColumnPublisher,
                                           Caption::ColumnVersion, Caption::ColumnUninstallCommand};
constexpr RootKey kUninstallRoot = RootKey::LocalMachine;

std::string PathOf(const std::string& key) { return std::string(kUninstall) + "\\" + key; }

}  // namespace

std::span<const Caption> AdwareUninstaller::ColumnCaptions() { return kUninstallerColumns; }

std::vector<std::string> AdwareUninstaller::ReadNames(const Loader& loader) const {
  const Sequence& sequence = loader.sequences[0];
  std::vector<std::string> names;
  for (int n = 0; n < sequence.most; ++n) {
    auto entry = ReadEntry(needs_.reference, sequence, n);
    if (!entry) break;
    names.push_back(std::move((*entry)[1]));
  }
  return names;
}

bool AdwareUninstaller::UpdateWildcardList(const std::string& display_name) const {
  return std::any_of(part_names_.begin(), part_names_.end(), [&](const std::string& part) {
    return FindNoCase(display_name, part) != std::string::npos;
  });
}

bool AdwareUninstaller::UpdateExactSearchList(const std::string& display_name) const {
  return std::any_of(exact_names_.begin(), exact_names_.end(),
                     [&](const std::string& name) { return EqualsNoCase(display_name, name); });
}

bool AdwareUninstaller::LoadSpyList(const Progress& progress) {
  return Load("ar LoadSpyList", false, progress);
}

bool AdwareUninstaller::LoadList(const Progress& progress) {
  return Load("ar LoadList", true, progress);
}

// Only a text counts as one; a text that the system expands is expanded.
std::string AdwareUninstaller::Read(const std::string& key, const char* name) const {
  RegValue value;
  if (needs_.registry.QueryValue(kUninstallRoot, PathOf(key), name, &value) != kRegOk) return {};
  std::string text(TrimNull(value.data));
  if (value.type == kRegExpandText) return ExpandEnvironment(text, needs_.system);
  return value.type == kRegText ? text : std::string();
}

bool AdwareUninstaller::Load(const char* procedure, bool all, const Progress& progress) {
  rows_.clear();
  failures_.clear();
  shows_all_ = all;
  const Outcome loaded = needs_.log.TrapOutcome(procedure, [&]() -> Outcome {
    part_names_ = ReadNames(kUpdateWildcardList);
    exact_names_ = ReadNames(kUpdateExactSearchList);
    std::vector<std::string> keys;
    const RegStatus status =
        needs_.registry.EnumKeys(kUninstallRoot, kUninstall, [&](const std::string& name) {
          keys.push_back(name);
          return true;
        });
    for (std::size_t i = 0; i + 1 < keys.size(); ++i) {
      std::string name = Read(keys[i], "DisplayName");
      const bool adware = UpdateWildcardList(name) || UpdateExactSearchList(name);
      if (!name.empty() && (all || adware)) {
        rows_.push_back({keys[i],
                         {std::move(name), Read(keys[i], "Publisher"),
                          Read(keys[i], "DisplayVersion"), Read(keys[i], "UninstallString")},
                         adware});
      }
      progress(i + 1, keys.size());
    }
    return status == kRegNotFound ? Outcome() : FromRegistry(status);
  });
  if (!loaded.ok()) failures_.push_back(ReasonText(needs_.captions, loaded));
  return loaded.ok();
}

std::string AdwareUninstaller::StatusText() const {
  return needs_.captions.Text(shows_all_ ? Caption::InstalledPrograms
                                         : Caption::AdwareProgramsFound) +
         " " + std::to_string(rows_.size());
}

// The desktop asks the user for the rights. It takes program and arguments apart from each other,
// which must leave no doubt; a user who says no has had his answer.
Outcome AdwareUninstaller::Start(const std::string& command) {
  Outcome started =
      needs_.shell.StartCommand(SafeCommand(command, needs_.files, needs_.folders, needs_.system));
  if (started.code() == kNeedsMoreRights) {
    const ProgramOf program = FindStarter(command, needs_.files, needs_.folders, needs_.system);
    const bool plain = command.starts_with('"') || program.path.find(' ') == std::string::npos;
    if (program.exists || (program.remote && plain)) {
      started = needs_.shell.Start(program.path, program.arguments);
      if (started.code() == kPermissionDenied) return started;
    }
  }
  if (!started.ok() && !TrimBlanks(command).empty())
    failures_.push_back(ReasonText(needs_.captions, started));
  return started;
}

bool AdwareUninstaller::Uninstall(std::size_t row) {
  failures_.clear();
  return needs_.log
      .TrapOutcome("ar cmdRemove_Click",
                   [&] { return Start(Read(rows_[row].key, "UninstallString")); })
      .ok();
}

std::string AdwareUninstaller::Info(std::size_t row) const {
  std::string text = needs_.captions.Text(Caption::PublisherAndVersion) + "\r\n\r\n" +
                     Cell(row, kProgram) + "\r\n";
  needs_.log.Trap("ar cmdViewInfo_Click", [&] {
    for (const auto& [caption, name] : {std::pair(Caption::ColumnPublisher, "Publisher"),
                                        {Caption::ColumnVersion, "DisplayVersion"}}) {
      const std::string value = Read(rows_[row].key, name);
      text += needs_.captions.Text(caption) + ": " +
              (value.empty() ? needs_.captions.Text(Caption::NotAvailable) : value) + "\r\n";
    }
  });
  return text;
}

std::string AdwareUninstaller::FileOf(std::size_t row) const {
  ProgramOf program = FindProgram(Cell(row, kCommand), needs_.files, needs_.folders, needs_.system);
  return program.exists ? std::move(program.path) : std::string();
}

std::string AdwareUninstaller::KeyOf(std::size_t row) const {
  return std::string(NameFromRoot(kUninstallRoot)) + "\\" + PathOf(rows_[row].key);
}

}  // namespace scourwell
