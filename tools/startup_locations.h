// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "machine/system_folders.h"
#include "platform/code_pages.h"
#include "platform/files.h"
#include "platform/profiles.h"
#include "platform/registry.h"
#include "platform/shell.h"
#include "platform/system.h"

namespace scourwell {

enum class LocationKind {
  Value,     // of a registry key; command: TextOfValue
  Key,       // below a registry key, with all it holds; command: TextOfTree
  Shortcut,  // in a Startup folder, named without ".lnk"; command: target and arguments
  WinIni,    // one program of a line; command: as it stands there
};

// A place from which programs are started. `label` is how profiles spell it in every language.
struct StartupLocation {
  const char* label;
  LocationKind kind;
  bool all_users;
  RootKey root;
  const char* path;      // of the key; the key name of a line
  SpecialFolder folder;  // of shortcuts
  bool view64 = false;
};

// Those of the startup manager, in the order in which they are listed: nine, then what only the
// view of 64-bit programs has.
std::span<const StartupLocation> StartupPlaces();
// Where browser helpers are registered: the view of 32-bit programs, then that of 64-bit ones.
std::span<const StartupLocation> HelperPlaces();
// Null for a label that no place has. Compared without case.
const StartupLocation* FindPlace(std::string_view label);

struct PlaceEntry {
  std::string name;
  std::string command;
};

// Takes entries out of their places and puts them back exactly as they were. What a command
// cannot hold (the shortcut file itself, the order of a line) is kept in a side folder of the
// program folder. An entry that has gone already counts as taken out.
class StartupLocations {
 public:
  struct Needs {
    Files& files;
    Registry& registry;
    Registry* registry64;  // null where there is only one view
    Profiles& profiles;
    Shell& shell;
    System& system;
    CodePages& code_pages;
    const SystemFolders& folders;
  };
  using Visit = std::function<void(const PlaceEntry&)>;

  explicit StartupLocations(const Needs& needs) : needs_(needs) {}

  // Windows 95, 98 and Me may have no Startup folder of all users.
  bool Has(const StartupLocation& place) const {
    if (place.kind == LocationKind::Shortcut) return !needs_.folders.Special(place.folder).empty();
    return !place.view64 || needs_.registry64;
  }
  // Entries come in the system's order. A place that does not exist is empty.
  Outcome List(const StartupLocation& place, const Visit& visit) const;

  // Whether the entry in its place is what an end in the middle left of the recorded one. Only
  // keys can be left half.
  bool IsRestOf(const StartupLocation& place, const PlaceEntry& found,
                const std::string& recorded) const;

  // Whether the entry in its place was made anew by others, after the recorded one of its name had
  // been taken out. Only what is kept aside can tell.
  bool IsAnother(const StartupLocation& place, const PlaceEntry& found) const;

  // How many times less a line names the program than it did before any were taken out.
  std::size_t MissingFromLine(const StartupLocation& place, const std::string& program) const;

  // The first half of disabling: prepares a place for what the command cannot hold and brings the
  // command up to date. Nothing is taken out. kFileExists: another shortcut of that name is kept
  // already.
  Outcome Keep(const StartupLocation& place, PlaceEntry* entry) const;
  // The second half, once the profile holds the entry.
  Outcome TakeOut(const StartupLocation& place, const PlaceEntry& entry) const;
  // For good.
  Outcome DeleteEntry(const StartupLocation& place, const PlaceEntry& entry) const;
  // Completes what is there in part. kFileExists: another entry of that name has come up meanwhile.
  // kInvalidCall: the name or the command cannot have been an entry of this place.
  Outcome PutBack(const StartupLocation& place, const PlaceEntry& entry) const;
  // Another name or command for an entry that is in its place. Not for shortcuts and keys.
  Outcome Change(const StartupLocation& place, const PlaceEntry& old,
                 const PlaceEntry& entry) const;
  // Drops what Keep kept: the entry is back, or with `removed` it is gone for good.
  Outcome Forget(const StartupLocation& place, const PlaceEntry& entry, bool removed) const;

  // The shortcut file of an entry; empty for other places and names that are no file names.
  std::string ShortcutPath(const StartupLocation& place, const std::string& name) const;
  const Needs& needs() const { return needs_; }
  // Who uses the program, as far as the system tells users apart; empty: it does not.
  void UseUser(std::string user) { user_ = std::move(user); }
  const std::string& user() const { return user_; }
  // Whether each user has an own place of that kind.
  bool IsOfUser(const StartupLocation& place) const;

 private:
  Registry& RegistryOf(const StartupLocation& place) const {
    return place.view64 ? *needs_.registry64 : needs_.registry;
  }
  Outcome ListValues(const StartupLocation& place, const Visit& visit) const;
  Outcome ListKeys(const StartupLocation& place, const Visit& visit) const;
  bool IsAnotherShortcut(const StartupLocation& place, const PlaceEntry& found) const;
  Outcome ListShortcuts(const StartupLocation& place, const Visit& visit) const;
  Outcome KeepShortcut(const StartupLocation& place, const PlaceEntry& entry) const;
  Outcome CheckAddress(const StartupLocation& place, const PlaceEntry& entry) const;
  Outcome KeepValue(const StartupLocation& place, PlaceEntry* entry) const;
  Outcome DeleteValue(const StartupLocation& place, const PlaceEntry& entry) const;
  Outcome PutBackValue(const StartupLocation& place, const PlaceEntry& entry) const;
  Outcome ChangeValue(const StartupLocation& place, const PlaceEntry& old,
                      const PlaceEntry& entry) const;
  Outcome PutBackKey(const StartupLocation& place, const PlaceEntry& entry) const;
  Outcome TakeOutShortcut(const StartupLocation& place, const PlaceEntry& entry) const;
  Outcome DeleteShortcut(const StartupLocation& place, const PlaceEntry& entry) const;
  Outcome PutBackShortcut(const StartupLocation& place, const PlaceEntry& entry) const;
  Outcome ForgetShortcut(const StartupLocation& place, const PlaceEntry& entry) const;
  Outcome KeepLine(const StartupLocation& place) const;
  Outcome PutBackProgram(const StartupLocation& place, const PlaceEntry& entry) const;
  Outcome ForgetProgram(const StartupLocation& place, const PlaceEntry& entry, bool removed) const;
  std::string KeptPath(const StartupLocation& place, const std::string& name) const;

  Needs needs_;
  std::string user_;
};

// A failure from a registry status.
Outcome FromRegistry(RegStatus status);
// The failures of PutBack.
Outcome EntryTaken();
Outcome NoSuchEntry();

}  // namespace scourwell
