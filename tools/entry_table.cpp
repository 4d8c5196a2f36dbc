// SPDX-License-Identifier: MIT
#include "tools/entry_table.h"

#include <algorithm>
#include <iterator>

#include "text/text.h"

namespace scourwell {
namespace {

using Fields = ProfileRecord;

PlaceEntry PlaceOf(const Entry& entry) { return {entry.name, entry.command}; }

bool IsSame(const Entry& entry, const StartupLocation* place, const std::string& name,
            const std::string& command) {
  return entry.place == place && entry.command == command && EqualsNoCase(entry.name, name);
}

void Note(Outcome outcome, const Entry& entry, std::vector<Outcome>* failures) {
  if (!outcome.ok()) failures->push_back(std::move(outcome).With("Entry: ", entry.name));
}

}  // namespace

bool HasMark(const Entry& entry) {
  const bool enabled = entry.status == EntryStatus::Enabled;
  const bool brought = !entry.present && !entry.held;
  return entry.status == EntryStatus::Remove || enabled != entry.present || brought;
}

void EntryTable::Fill(std::vector<Outcome>* failures) {
  entries_.clear();
  for (const StartupLocation& place : places_) {
    Outcome listed = locations_.List(place, [&](const PlaceEntry& found) {
      Entry entry;
      entry.name = found.name;
      entry.command = found.command;
      entry.place = &place;
      entry.present = true;
      entries_.push_back(std::move(entry));
    });
    if (!listed.ok()) failures->push_back(std::move(listed).With("Location: ", place.label));
  }
  Outcome loaded = LoadDisabledItems();
  if (!loaded.ok()) failures->push_back(std::move(loaded));
}

void EntryTable::Refresh(std::vector<Outcome>* failures) {
  std::vector<Entry> marked;
  std::copy_if(entries_.begin(), entries_.end(), std::back_inserter(marked), HasMark);
  Fill(failures);
  for (Entry& mark : marked) {
    const auto is_same = [&](const Entry& entry) {
      return IsSame(entry, mark.place, mark.name, mark.command);
    };
    const bool known = std::any_of(entries_.begin(), entries_.end(), is_same);
    // Of entries that read alike, each takes one mark.
    const auto other = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
      return is_same(entry) && entry.status != mark.status;
    });
    if (other != entries_.end()) {
      other->status = mark.status;
    } else if (!known && !mark.present && !mark.held) {
      entries_.push_back(std::move(mark));
    }
  }
}

// An entry that is both in its place and in the profile was left so by a run that ended in
// between: its place counts.
void EntryTable::AddRecord(const ProfileRecord& record, bool held, bool claimed) {
  const StartupLocation* place = FindPlace(record.fields[Fields::kLocation]);
  const bool ours = place && std::any_of(places_.begin(), places_.end(),
                                         [&](const StartupLocation& p) { return &p == place; });
  if (!ours) place = nullptr;
  const std::string& name = record.fields[Fields::kName];
  const std::string& command = record.fields[Fields::kCommand];
  const bool apart = held && place && IsMissing(*place, command);
  for (Entry& entry : entries_) {
    if (apart || !place || entry.place != place || (held && entry.held)) continue;
    const bool rest = held && entry.present && EqualsNoCase(entry.name, name) &&
                      locations_.IsRestOf(*place, PlaceOf(entry), command);
    if (rest) {
      entry.command = command;
      entry.partial = true;
    }
    if (!IsSame(entry, place, name, command)) continue;
    if (held && place && entry.present && locations_.IsAnother(*place, PlaceOf(entry))) continue;
    if (held) entry.held = true;
    entry.claimed = entry.claimed || claimed;
    if (!held) entry.status = EntryStatus::Disabled;
    return;
  }
  Entry entry;
  entry.name = name;
  entry.command = command;
  entry.status = EntryStatus::Disabled;
  entry.place = place;
  entry.held = held;
  entry.claimed = claimed;
  entry.record = record;
  entries_.push_back(std::move(entry));
}

// A line may name a program twice: one of them that is still there is not the one that was taken
// out.
bool EntryTable::IsMissing(const StartupLocation& place, const std::string& command) const {
  const std::size_t missing = locations_.MissingFromLine(place, command);
  const auto taken = std::count_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
    return entry.place == &place && entry.held && !entry.present && entry.command == command;
  });
  return static_cast<std::size_t>(taken) < missing;
}

void EntryTable::ToggleDisabled(std::size_t row) {
  Entry& entry = entries_[row];
  const bool enable = entry.status == EntryStatus::Disabled ||
                      (entry.status == EntryStatus::Remove && entry.present);
  entry.status = enable ? EntryStatus::Enabled : EntryStatus::Disabled;
}

void EntryTable::ResetAll() {
  for (Entry& entry : entries_) entry.status = EntryStatus::Enabled;
}

bool EntryTable::IsChanged() const {
  return std::any_of(entries_.begin(), entries_.end(), [](const Entry& entry) {
    const bool enabled = entry.status == EntryStatus::Enabled;
    return entry.status == EntryStatus::Remove || enabled != entry.present || enabled == entry.held;
  });
}

bool EntryTable::HasMarks() const { return std::any_of(entries_.begin(), entries_.end(), HasMark); }

bool EntryTable::Prepare(Entry& entry, std::vector<Outcome>* failures) {
  PlaceEntry kept = PlaceOf(entry);
  Outcome outcome = locations_.Keep(*entry.place, &kept);
  if (outcome.ok()) {
    entry.command = kept.command;
    entry.claimed = locations_.IsOfUser(*entry.place);
    return true;
  }
  entry.status = EntryStatus::Enabled;
  Note(std::move(outcome), entry, failures);
  return false;
}

void EntryTable::Carry(Entry& entry, std::vector<Outcome>* failures) {
  Outcome outcome;
  if (entry.status == EntryStatus::Enabled && (!entry.present || entry.partial)) {
    outcome = entry.place ? locations_.PutBack(*entry.place, PlaceOf(entry)) : NoSuchEntry();
    entry.present = outcome.ok();
    if (outcome.ok()) entry.partial = false;
  } else if (entry.status != EntryStatus::Enabled && entry.present) {
    outcome = entry.status == EntryStatus::Remove
                  ? locations_.DeleteEntry(*entry.place, PlaceOf(entry))
                  : locations_.TakeOut(*entry.place, PlaceOf(entry));
    entry.present = !outcome.ok();
    entry.partial = entry.partial && entry.present;
  }
  if (outcome.ok()) return;
  entry.status = entry.present ? EntryStatus::Enabled : EntryStatus::Disabled;
  Note(std::move(outcome), entry, failures);
}

void EntryTable::Apply(std::vector<Outcome>* failures) {
  if (!unreadable_.ok()) return failures->push_back(unreadable_);
  std::vector<Entry*> kept;
  for (Entry& entry : entries_) {
    const bool disabling = entry.status == EntryStatus::Disabled && entry.present;
    if (disabling && Prepare(entry, failures)) kept.push_back(&entry);
  }
  if (Outcome saved = SaveDisabledItems(true); !saved.ok()) {
    for (Entry* entry : kept) entry->status = EntryStatus::Enabled;
    return failures->push_back(std::move(saved).With("File: ", profile_path_));
  }
  for (Entry* entry : kept) entry->held = true;
  for (Entry& entry : entries_) Carry(entry, failures);
  if (Outcome saved = SaveDisabledItems(false); !saved.ok()) {
    // The old records are still there.
    for (Entry& entry : entries_) {
      if (entry.status == EntryStatus::Remove && entry.held) entry.status = EntryStatus::Disabled;
    }
    failures->push_back(std::move(saved).With("File: ", profile_path_));
  } else {
    Settle(failures);
  }
  std::erase_if(entries_, [](const Entry& entry) { return entry.status == EntryStatus::Remove; });
}

// The profile is as it should be: what was kept beside it for others can go.
void EntryTable::Settle(std::vector<Outcome>* failures) {
  for (Entry& entry : entries_) {
    const bool removed = entry.status == EntryStatus::Remove;
    const bool in_line = entry.place && entry.place->kind == LocationKind::WinIni;
    if (entry.status == EntryStatus::Disabled) {
      entry.held = true;
    } else if (entry.place && (entry.held || (removed && in_line))) {
      Note(locations_.Forget(*entry.place, PlaceOf(entry), removed), entry, failures);
      entry.held = false;
    }
  }
}

Outcome EntryTable::Add(const StartupLocation& place, const PlaceEntry& added) {
  for (const Entry& entry : entries_) {
    const bool same_name = entry.place == &place && EqualsNoCase(entry.name, added.name);
    if (same_name && entry.present && place.kind != LocationKind::WinIni) return EntryTaken();
  }
  if (Outcome written = locations_.PutBack(place, added); !written.ok()) return written;
  Entry entry;
  entry.name = added.name;
  entry.command = added.command;
  entry.place = &place;
  entry.present = true;
  entries_.push_back(std::move(entry));
  return {};
}

Outcome EntryTable::Edit(std::size_t row, const PlaceEntry& changed) {
  Entry& entry = entries_[row];
  if (!entry.place) return NoSuchEntry();
  if (entry.held && !unreadable_.ok()) return unreadable_;
  const PlaceEntry before = PlaceOf(entry);
  if (entry.present) {
    if (Outcome done = locations_.Change(*entry.place, before, changed); !done.ok()) return done;
  }
  entry.name = changed.name;
  entry.command = changed.command;
  if (!entry.held) return {};
  Outcome saved = SaveHeldItems();
  if (!saved.ok() && !entry.present) {
    entry.name = before.name;
    entry.command = before.command;
  }
  return saved;
}

}  // namespace scourwell
