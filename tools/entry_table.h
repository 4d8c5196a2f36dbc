// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <vector>

#include "tools/profile_claims.h"
#include "tools/startup_locations.h"

namespace scourwell {

enum class EntryStatus { Enabled, Disabled, Remove };

// One row: an entry of a place, or a record of the profile, or both after an unfinished run.
struct Entry {
  std::string name;
  std::string command;
  EntryStatus status = EntryStatus::Enabled;
  const StartupLocation* place = nullptr;  // null: the record names none that we know
  bool present = false;                    // in its place
  bool held = false;                       // in the profile
  bool claimed = false;                    // this user's alone
  bool partial = false;                    // only a part of what the profile holds is in its place
  ProfileRecord record;                    // as it was read; only of those that were
};

// The user has set a mark, or brought the entry by a profile of his choice.
bool HasMark(const Entry& entry);

// Entries of some places with the marks of the user, and the profile that is the only record of
// the disabled ones. Marks change nothing in the system until Apply.
//
// What Apply does is ordered so that an entry is at every moment in its place or in the profile:
// kept aside, recorded, taken out; put back, struck off the record, dropped from the side.
class EntryTable {
 public:
  // How the columns of an entry are written into its record.
  using Describe = ProfileRecord (*)(const Entry& entry);

  EntryTable(const StartupLocations& locations, std::span<const StartupLocation> places,
             std::string profile_path, Describe describe)
      : locations_(locations),
        places_(places),
        profile_path_(std::move(profile_path)),
        claims_(locations),
        describe_(describe) {}

  // Reads places and profile anew; marks are lost. Failures are appended, the rest is listed.
  void Fill(std::vector<Outcome>* failures);
  // The same, but marks stay on the entries that are still there.
  void Refresh(std::vector<Outcome>* failures);

  std::size_t size() const { return entries_.size(); }
  const Entry& operator[](std::size_t row) const { return entries_[row]; }

  // Between Enabled and Disabled; a row to be removed becomes what it is in the system.
  void ToggleDisabled(std::size_t row);
  void MarkRemove(std::size_t row) { entries_[row].status = EntryStatus::Remove; }
  // Every row to Enabled.
  void ResetAll();
  // A mark differs from what the system and the profile say.
  bool IsChanged() const;
  // The user has set a mark, or brought a row by a profile: what an unfinished run left is neither.
  bool HasMarks() const;

  // Carries out the marks, row by row. An entry that fails goes back to what it is; the others
  // go on. Rows that were removed leave the table.
  void Apply(std::vector<Outcome>* failures);

  // A new entry, written into its place at once.
  Outcome Add(const StartupLocation& place, const PlaceEntry& entry);
  // Another name and command for an entry, in its place or in the profile; not for shortcuts.
  Outcome Edit(std::size_t row, const PlaceEntry& entry);

  // The disabled rows to a file, and the records of a file to disabled rows.
  Outcome SaveTo(const std::string& path) const;
  Outcome LoadFrom(const std::string& path);

 private:
  void AddRecord(const ProfileRecord& record, bool held, bool claimed = false);
  bool IsMissing(const StartupLocation& place, const std::string& command) const;
  Outcome LoadDisabledItems();
  ProfileRecord RecordOf(const Entry& entry) const;
  Outcome SaveHeldItems();
  template <class Belongs>
  Outcome SaveThose(Belongs&& belongs);
  Outcome SaveDisabledItems(bool with_pending);
  bool Prepare(Entry& entry, std::vector<Outcome>* failures);
  void Carry(Entry& entry, std::vector<Outcome>* failures);
  void Settle(std::vector<Outcome>* failures);

  const StartupLocations& locations_;
  std::span<const StartupLocation> places_;
  std::string profile_path_;
  ProfileClaims claims_;
  std::vector<ProfileRecord> of_others_;  // in the profile, but of no concern to this user
  Describe describe_;
  std::vector<Entry> entries_;
  Outcome unreadable_;  // why the profile must not be written over
};

}  // namespace scourwell
