// SPDX-License-Identifier: MIT
#include "tools/startup_locations.h"

#include <algorithm>
#include <vector>

#include "machine/file_utils.h"
#include "text/text.h"
#include "text/unicode.h"
#include "tools/program_of.h"
#include "tools/stored_value.h"
#include "tools/win_ini_line.h"
#include "tools/win_ini_store.h"

namespace scourwell {
namespace {

#define SW_CURRENT_VERSION "Software\\Microsoft\\Windows\\CurrentVersion\\"
constexpr char kHelpers[] = SW_CURRENT_VERSION "Explorer\\Browser Helper Objects";
constexpr SpecialFolder kNoFolder = SpecialFolder::Desktop;
constexpr RootKey kUser = RootKey::CurrentUser;
constexpr RootKey kMachine = RootKey::LocalMachine;
using Kind = LocationKind;

// clang-format off
constexpr StartupLocation kPlaces[] = {
    {"Registry(Machine Run)", Kind::Value, true, kMachine, SW_CURRENT_VERSION "Run", kNoFolder},
    {"Registry(Machine RunOnce)", Kind::Value, true, kMachine, SW_CURRENT_VERSION "RunOnce", kNoFolder},
    {"Registry(Machine RunOnceEx)", Kind::Value, true, kMachine, SW_CURRENT_VERSION "RunOnceEx", kNoFolder},
    {"Registry(Machine RunServices)", Kind::Value, true, kMachine, SW_CURRENT_VERSION "RunServices", kNoFolder},
    {"Registry(User Run)", Kind::Value, false, kUser, SW_CURRENT_VERSION "Run", kNoFolder},
    {"Win.ini Load", Kind::WinIni, true, kUser, "Load", kNoFolder},
    {"Win.ini Run", Kind::WinIni, true, kUser, "Run", kNoFolder},
    {"StartUp (Current User)", Kind::Shortcut, false, kUser, "Current User", SpecialFolder::StartUp},
    {"StartUp (All Users)", Kind::Shortcut, true, kUser, "All Users", SpecialFolder::CommonStartUp},
    {"Registry(Machine Run, 64-bit)", Kind::Value, true, kMachine, SW_CURRENT_VERSION "Run", kNoFolder, true},
    {"Registry(Machine RunOnce, 64-bit)", Kind::Value, true, kMachine, SW_CURRENT_VERSION "RunOnce", kNoFolder, true},
    {"Registry(Machine RunOnceEx, 64-bit)", Kind::Value, true, kMachine, SW_CURRENT_VERSION "RunOnceEx", kNoFolder, true},
    {"Browser Helper Objects", Kind::Key, true, kMachine, kHelpers, kNoFolder},
    {"Browser Helper Objects (64-bit)", Kind::Key, true, kMachine, kHelpers, kNoFolder, true},
};
// clang-format on
#undef SW_CURRENT_VERSION
constexpr std::size_t kStartupPlaces = 12;

// A key's own name: below its place, nowhere else.
bool IsKeyName(const std::string& name) {
  constexpr std::size_t kLongest = 255;  // 16-bit units
  return !name.empty() && ToUtf16(name).size() <= kLongest &&
         name.find_first_of(std::string_view("\\\0", 2)) == name.npos;
}

std::string KeyPath(const StartupLocation& place, const std::string& name) {
  return std::string(place.path) + "\\" + name;
}

}  // namespace

Outcome EntryTaken() {
  return Outcome::Failed(kFileExists, "Another entry of this name has been made meanwhile");
}

Outcome NoSuchEntry() {
  return Outcome::Failed(kInvalidCall, "The record fits no entry of its location");
}

std::span<const StartupLocation> StartupPlaces() {
  return std::span(kPlaces).first(kStartupPlaces);
}

std::span<const StartupLocation> HelperPlaces() {
  return std::span(kPlaces).subspan(kStartupPlaces);
}

const StartupLocation* FindPlace(std::string_view label) {
  for (const StartupLocation& place : kPlaces) {
    if (EqualsNoCase(place.label, label)) return &place;
  }
  return nullptr;
}

Outcome FromRegistry(RegStatus status) {
  switch (status) {
    case kRegOk:
      return {};
    case kRegNotFound:
      return Outcome::Failed(kFileNotFound, "There is no such registry entry");
    case kRegAccessDenied:
      return Outcome::Failed(kPermissionDenied, "The registry refuses the change");
    case kRegInvalidParameter:
      return Outcome::Failed(kInvalidCall, "The registry entry could not be put back as it is");
    default:
      return Outcome::Failed(kInvalidCall, "Registry error " + std::to_string(status));
  }
}

Outcome StartupLocations::List(const StartupLocation& place, const Visit& visit) const {
  if (!Has(place)) return {};
  switch (place.kind) {
    case LocationKind::Value:
      return ListValues(place, visit);
    case LocationKind::Key:
      return ListKeys(place, visit);
    case LocationKind::Shortcut:
      return ListShortcuts(place, visit);
    case LocationKind::WinIni: {
      const WinIniStore store(needs_.files, needs_.registry, needs_.profiles, needs_.code_pages,
                              needs_.folders);
      const WinIniLine line(store.Read(place.path));
      for (const std::string& program : line.programs()) {
        visit({ReplaceAll(program, "\"", ""), program});
      }
      return {};
    }
  }
  return {};
}

Outcome StartupLocations::ListKeys(const StartupLocation& place, const Visit& visit) const {
  std::vector<std::string> names;
  const RegStatus status =
      RegistryOf(place).EnumKeys(place.root, place.path, [&](const std::string& name) {
        names.push_back(name);
        return true;
      });
  for (const std::string& name : names) {
    StoredTree tree;
    if (ReadTree(RegistryOf(place), place.root, KeyPath(place, name), &tree) != kRegOk)
      tree.clear();
    visit({name, TextOfTree(tree)});
  }
  return status == kRegNotFound ? Outcome() : FromRegistry(status);
}

// Where the system tells users apart, the lines of "win.ini" lie in the registry of each.
bool StartupLocations::IsOfUser(const StartupLocation& place) const {
  return !place.all_users || place.kind == LocationKind::WinIni;
}

bool StartupLocations::IsAnother(const StartupLocation& place, const PlaceEntry& found) const {
  return place.kind == LocationKind::Shortcut && IsAnotherShortcut(place, found);
}

bool StartupLocations::IsRestOf(const StartupLocation& place, const PlaceEntry& found,
                                const std::string& recorded) const {
  return place.kind == LocationKind::Key && !found.command.empty() && found.command != recorded &&
         IsPartOf(TreeOfText(found.command), TreeOfText(recorded));
}

Outcome StartupLocations::Keep(const StartupLocation& place, PlaceEntry* entry) const {
  switch (place.kind) {
    case LocationKind::Value:
      return KeepValue(place, entry);
    case LocationKind::Key: {
      StoredTree tree;
      const RegStatus status =
          ReadTree(RegistryOf(place), place.root, KeyPath(place, entry->name), &tree);
      const bool rest = IsRestOf(place, {entry->name, TextOfTree(tree)}, entry->command);
      if (status == kRegOk && !rest) entry->command = TextOfTree(tree);
      return status == kRegNotFound ? Outcome() : FromRegistry(status);
    }
    case LocationKind::Shortcut:
      return KeepShortcut(place, *entry);
    case LocationKind::WinIni:
      return KeepLine(place);
  }
  return {};
}

Outcome StartupLocations::TakeOut(const StartupLocation& place, const PlaceEntry& entry) const {
  return place.kind == LocationKind::Shortcut ? TakeOutShortcut(place, entry)
                                              : DeleteEntry(place, entry);
}

Outcome StartupLocations::DeleteEntry(const StartupLocation& place, const PlaceEntry& entry) const {
  switch (place.kind) {
    case LocationKind::Value:
      return DeleteValue(place, entry);
    case LocationKind::Key:
      if (!IsKeyName(entry.name)) return NoSuchEntry();
      return FromRegistry(DeleteStoredTree(RegistryOf(place), place.root,
                                           KeyPath(place, entry.name), TreeOfText(entry.command)));
    case LocationKind::Shortcut:
      return DeleteShortcut(place, entry);
    case LocationKind::WinIni: {
      const WinIniStore store(needs_.files, needs_.registry, needs_.profiles, needs_.code_pages,
                              needs_.folders);
      const std::string line = store.Read(place.path);
      const std::string left = WithoutProgram(line, entry.command);
      return left == line ? Outcome() : store.Write(place.path, left);
    }
  }
  return {};
}

Outcome StartupLocations::PutBack(const StartupLocation& place, const PlaceEntry& entry) const {
  if (!Has(place)) return Outcome::Failed(kPathNotFound, "This Windows has no such location");
  switch (place.kind) {
    case LocationKind::Value:
      return PutBackValue(place, entry);
    case LocationKind::Key:
      return PutBackKey(place, entry);
    case LocationKind::Shortcut:
      return PutBackShortcut(place, entry);
    case LocationKind::WinIni:
      return PutBackProgram(place, entry);
  }
  return {};
}

Outcome StartupLocations::Change(const StartupLocation& place, const PlaceEntry& old,
                                 const PlaceEntry& entry) const {
  if (place.kind == LocationKind::WinIni) {
    if (WinIniLine(entry.command).programs() != std::vector<std::string>{entry.command}) {
      return NoSuchEntry();
    }
    const WinIniStore store(needs_.files, needs_.registry, needs_.profiles, needs_.code_pages,
                            needs_.folders);
    return store.Write(place.path, WithOther(store.Read(place.path), old.command, entry.command));
  }
  return place.kind == LocationKind::Value ? ChangeValue(place, old, entry) : NoSuchEntry();
}

// The order of a line matters only as long as a program is out of it.
Outcome StartupLocations::KeepLine(const StartupLocation& place) const {
  const WinIniStore store(needs_.files, needs_.registry, needs_.profiles, needs_.code_pages,
                          needs_.folders);
  const std::string line = store.Read(place.path);
  const std::string original = store.Original(place.path);
  if (!original.empty() && WinIniLine(original).FindKept(line)) return {};
  return store.KeepOriginal(place.path, line);
}

std::size_t StartupLocations::MissingFromLine(const StartupLocation& place,
                                              const std::string& program) const {
  if (place.kind != LocationKind::WinIni) return 0;
  const WinIniStore store(needs_.files, needs_.registry, needs_.profiles, needs_.code_pages,
                          needs_.folders);
  const auto count = [&](const std::string& line) {
    const std::vector<std::string> programs = WinIniLine(line).programs();
    return static_cast<std::size_t>(std::count(programs.begin(), programs.end(), program));
  };
  const std::size_t before = count(store.Original(place.path));
  const std::size_t now = count(store.Read(place.path));
  return before > now ? before - now : 0;
}

Outcome StartupLocations::PutBackProgram(const StartupLocation& place,
                                         const PlaceEntry& entry) const {
  // More than one program, or none, would change the line under other names.
  if (WinIniLine(entry.command).programs() != std::vector<std::string>{entry.command}) {
    return NoSuchEntry();
  }
  const WinIniStore store(needs_.files, needs_.registry, needs_.profiles, needs_.code_pages,
                          needs_.folders);
  return store.Write(
      place.path, WithProgram(store.Read(place.path), entry.command, store.Original(place.path)));
}

Outcome StartupLocations::ForgetProgram(const StartupLocation& place, const PlaceEntry& entry,
                                        bool removed) const {
  const WinIniStore store(needs_.files, needs_.registry, needs_.profiles, needs_.code_pages,
                          needs_.folders);
  std::string original = store.Original(place.path);
  if (original.empty()) return {};
  if (removed) original = WithoutProgram(original, entry.command);
  const std::string line = store.Read(place.path);
  const bool of_use = line != original && WinIniLine(original).FindKept(line);
  return store.KeepOriginal(place.path, of_use ? original : std::string());
}

Outcome StartupLocations::Forget(const StartupLocation& place, const PlaceEntry& entry,
                                 bool removed) const {
  if (place.kind == LocationKind::Shortcut) return ForgetShortcut(place, entry);
  if (place.kind == LocationKind::WinIni) return ForgetProgram(place, entry, removed);
  return {};
}

Outcome StartupLocations::PutBackKey(const StartupLocation& place, const PlaceEntry& entry) const {
  const StoredTree tree = TreeOfText(entry.command);
  if (tree.empty() || !IsKeyName(entry.name)) return NoSuchEntry();
  Registry& registry = RegistryOf(place);
  const std::string path = KeyPath(place, entry.name);
  StoredTree there;
  const RegStatus read = ReadTree(registry, place.root, path, &there);
  if (read != kRegOk && read != kRegNotFound) return FromRegistry(read);
  const bool exists = read == kRegOk;
  if (exists && !IsPartOf(there, tree)) return EntryTaken();
  const RegStatus written = WriteTree(registry, place.root, path, tree);
  // Half an entry must not look like one.
  if (written != kRegOk && !exists) {
    static_cast<void>(DeleteStoredTree(registry, place.root, path, tree));
  }
  return FromRegistry(written);
}

}  // namespace scourwell
