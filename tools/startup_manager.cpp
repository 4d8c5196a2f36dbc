// SPDX-License-Identifier: MIT
#include "tools/startup_manager.h"

#include "machine/file_utils.h"
#include "machine/registry_place.h"
#include "text/caption_ids.h"
#include "text/text.h"
#include "tools/program_of.h"
#include "tools/stored_value.h"
#include "tools/win_ini_line.h"

namespace scourwell {
namespace {

using Fields = ProfileRecord;

constexpr Caption kStartupColumns[] = {
    Caption::ColumnName,  Caption::ColumnStatus,   Caption::ColumnLocation,
    Caption::ColumnScope, Caption::ColumnRunsWhen, Caption::ColumnCommand,
    Caption::ColumnFile,  Caption::ColumnCompany,  Caption::ColumnKnownAs};

// The same in every language, so that a profile outlives a change of it.
ProfileRecord DescribeStartup(const Entry& entry) {
  const bool all = entry.place->all_users;
  return {{entry.name, "Disabled", entry.place->label, all ? "All Users" : "Current User",
           all ? "Any User Logs On" : "Current User logs On", entry.command}};
}

std::string ShownCommand(const Entry& entry) {
  const bool value = entry.place && entry.place->kind == LocationKind::Value;
  return value ? ShownValue(entry.command) : entry.command;
}

// A list would end the name at its NUL.
std::string ShownName(const std::string& name) {
  return ReplaceAll(name, std::string_view("\0", 1), "\\0");
}

Outcome NoArgumentsInLine() {
  return Outcome::Failed(kInvalidCall, "A line of win.ini takes no arguments")
      .Because(Caption::NoArgumentsInLine);
}

bool IsText(std::uint32_t type) { return type == kRegText || type == kRegExpandText; }

}  // namespace

StartupManager::StartupManager(const Needs& needs)
    : EntryManager(needs, StartupPlaces(),
                   AddPathToFileName(needs.locations.needs().folders.application, "SaveProf.pro"),
                   DescribeStartup, "FRM Startup - ") {}

std::span<const Caption> StartupManager::ColumnCaptions() { return kStartupColumns; }

std::string StartupManager::PlaceName(const StartupLocation& place) const {
  switch (place.kind) {
    case LocationKind::Value:
      if (place.root == RootKey::CurrentUser) return Text(Caption::LocationUserRun);
      return Text(Caption::LocationRegistry) + "(Machine " + std::string(FileNamePart(place.path)) +
             (place.view64 ? ", 64-bit)" : ")");
    case LocationKind::Shortcut:
      return Text(place.all_users ? Caption::LocationCommonStartup : Caption::LocationUserStartup);
    default:
      return Text(EqualsNoCase(place.path, "Load") ? Caption::LocationWinIniLoad
                                                   : Caption::LocationWinIniRun);
  }
}

std::vector<const StartupLocation*> StartupManager::TaskPlaces() const {
  std::vector<const StartupLocation*> places;
  for (const StartupLocation& place : StartupPlaces()) {
    if (needs_.locations.Has(place)) places.push_back(&place);
  }
  return places;
}

FileFacts StartupManager::FactsOf(const Entry& entry) const {
  FileFacts facts = needs_.facts.OfCommand(ShownCommand(entry));
  if (!entry.place || entry.place->kind != LocationKind::Value) return facts;
  const std::string key = std::string(NameFromRoot(entry.place->root)) + "\\" + entry.place->path;
  std::string spy = needs_.spies.OfValue(key, entry.name);
  if (!spy.empty()) facts.spy = std::move(spy);
  return facts;
}

std::vector<std::string> StartupManager::CellsOf(const Entry& entry, const FileFacts& facts) const {
  std::vector<std::string> cells(kColumns);
  cells[kName] = entry.name.empty() ? Text(Caption::DefaultValue) : ShownName(entry.name);
  cells[kStatus] = StatusText(entry);
  if (entry.place) {
    const bool all = entry.place->all_users;
    cells[kLocation] = PlaceName(*entry.place);
    cells[kScope] = Text(all ? Caption::ScopeAllUsers : Caption::ScopeCurrentUser);
    cells[kWhen] = Text(all ? Caption::WhenAnyUserLogsOn : Caption::WhenCurrentUserLogsOn);
  } else {
    cells[kLocation] = entry.record.fields[Fields::kLocation];
    cells[kScope] = entry.record.fields[Fields::kScope];
    cells[kWhen] = entry.record.fields[Fields::kWhen];
  }
  cells[kCommand] = ShownCommand(entry);
  cells[kFile] = FoundText(facts);
  cells[kCompany] = facts.company;
  cells[kSpy] = facts.spy;
  return cells;
}

PlaceEntry StartupManager::EntryOf(const StartupLocation& place, const std::string& name,
                                   const std::string& program) const {
  const std::string typed(TrimBlanks(program));
  const StartupLocations::Needs& machine = needs_.locations.needs();
  switch (place.kind) {
    case LocationKind::Value: {
      const std::string command =
          SafeCommand(typed, machine.files, machine.folders, machine.system);
      return {name, TextOfValue({kRegText, command + '\0'})};
    }
    case LocationKind::WinIni:
      return {ReplaceAll(typed, "\"", ""), AsProgram(typed)};
    default:
      return {name, SafeCommand(typed, machine.files, machine.folders, machine.system)};
  }
}

// Each blank begins another program there, and quotes would make one name of all.
bool StartupManager::HasArguments(const std::string& program) const {
  const StartupLocations::Needs& machine = needs_.locations.needs();
  return !FindStarter(program, machine.files, machine.folders, machine.system).arguments.empty();
}

bool StartupManager::AddTask(const StartupLocation& place, const std::string& name,
                             const std::string& program) {
  return Trap("keyAddTask", [&](std::vector<Outcome>* failures) {
    Outcome added;
    const bool named = place.kind == LocationKind::WinIni || !TrimBlanks(name).empty();
    if (!named || TrimBlanks(program).empty()) {
      added = NoSuchEntry();
    } else if (place.kind == LocationKind::WinIni && HasArguments(program)) {
      added = NoArgumentsInLine();
    } else {
      added = table_.Add(place, EntryOf(place, std::string(TrimBlanks(name)), program));
    }
    if (!added.ok()) failures->push_back(std::move(added).With("Entry: ", name));
    Tell(true);
  });
}

bool StartupManager::MayEdit(std::size_t row) const {
  const StartupLocation* place = table_[row].place;
  if (!place) return false;
  if (place->kind == LocationKind::WinIni) return true;
  return place->kind == LocationKind::Value && IsText(ValueOfText(table_[row].command).type);
}

std::string StartupManager::ShortcutOf(std::size_t row) const {
  const Entry& entry = table_[row];
  return entry.place && entry.present ? needs_.locations.ShortcutPath(*entry.place, entry.name)
                                      : std::string();
}

std::string StartupManager::EditedCommand(std::size_t row) const {
  return ShownCommand(table_[row]);
}

// A text that the system expands stays one.
bool StartupManager::Edit(std::size_t row, const std::string& name, const std::string& command) {
  return Trap("keyEdit", [&](std::vector<Outcome>* failures) {
    Outcome edited = NoSuchEntry();
    const bool line = MayEdit(row) && table_[row].place->kind == LocationKind::WinIni;
    if (line && HasArguments(command)) {
      edited = NoArgumentsInLine();
    } else if (MayEdit(row) && !TrimBlanks(command).empty()) {
      const Entry& entry = table_[row];
      PlaceEntry changed{name, TextOfValue({ValueOfText(entry.command).type, command + '\0'})};
      if (line) changed = EntryOf(*entry.place, name, command);
      edited = table_.Edit(row, changed);
    }
    if (!edited.ok()) failures->push_back(std::move(edited).With("Entry: ", name));
    Tell(true);
  });
}

}  // namespace scourwell
