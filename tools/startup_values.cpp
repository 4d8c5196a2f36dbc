// SPDX-License-Identifier: MIT

// Values of a registry key: each is told from others that its name could stand for.
#include "text/text.h"
#include "tools/startup_locations.h"
#include "tools/stored_value.h"

namespace scourwell {

Outcome StartupLocations::ListValues(const StartupLocation& place, const Visit& visit) const {
  const RegStatus status = RegistryOf(place).EnumValues(
      place.root, place.path, [&](const std::string& name, const RegValue& value) {
        visit({name, TextOfValue(value)});
        return true;
      });
  return status == kRegNotFound ? Outcome() : FromRegistry(status);
}

// A name that the code page spells with other letters leads nowhere, or to the value that is really
// called so: what the name leads to must be what the entry says, or the only value of that name.
Outcome StartupLocations::CheckAddress(const StartupLocation& place,
                                       const PlaceEntry& entry) const {
  Registry& registry = RegistryOf(place);
  RegValue there;
  const RegStatus found = registry.QueryValue(place.root, place.path, entry.name, &there);
  const std::string command = TextOfValue(there);
  if (found == kRegOk && command == entry.command) return {};
  std::size_t listed = 0;
  bool same = false;
  const RegStatus status = registry.EnumValues(place.root, place.path,
                                               [&](const std::string& name, const RegValue& value) {
                                                 if (!EqualsNoCase(name, entry.name)) return true;
                                                 ++listed;
                                                 same = TextOfValue(value) == command;
                                                 return true;
                                               });
  if (status != kRegOk && status != kRegNotFound) return FromRegistry(status);
  if (listed == 0 || (listed == 1 && found == kRegOk && same)) return {};
  return Outcome::Failed(kInvalidCall, "No call leads to a value of this name: it stays as it is");
}

Outcome StartupLocations::KeepValue(const StartupLocation& place, PlaceEntry* entry) const {
  if (Outcome checked = CheckAddress(place, *entry); !checked.ok()) return checked;
  RegValue value;
  const RegStatus status =
      RegistryOf(place).QueryValue(place.root, place.path, entry->name, &value);
  if (status == kRegOk) entry->command = TextOfValue(value);
  return status == kRegNotFound ? Outcome() : FromRegistry(status);
}

Outcome StartupLocations::DeleteValue(const StartupLocation& place, const PlaceEntry& entry) const {
  if (Outcome checked = CheckAddress(place, entry); !checked.ok()) return checked;
  const RegStatus status = RegistryOf(place).DeleteValue(place.root, place.path, entry.name);
  return status == kRegNotFound ? Outcome() : FromRegistry(status);
}

Outcome StartupLocations::PutBackValue(const StartupLocation& place,
                                       const PlaceEntry& entry) const {
  Registry& registry = RegistryOf(place);
  RegValue there;
  if (registry.QueryValue(place.root, place.path, entry.name, &there) == kRegOk) {
    return TextOfValue(there) == entry.command ? Outcome() : EntryTaken();
  }
  return FromRegistry(
      registry.SetValue(place.root, place.path, entry.name, ValueOfText(entry.command)));
}

// The new entry is there before the old one goes.
Outcome StartupLocations::ChangeValue(const StartupLocation& place, const PlaceEntry& old,
                                      const PlaceEntry& entry) const {
  if (Outcome checked = CheckAddress(place, old); !checked.ok()) return checked;
  if (EqualsNoCase(old.name, entry.name)) {
    return FromRegistry(
        RegistryOf(place).SetValue(place.root, place.path, entry.name, ValueOfText(entry.command)));
  }
  Outcome done = PutBackValue(place, entry);
  return done.ok() ? DeleteValue(place, old) : done;
}

}  // namespace scourwell
