// SPDX-License-Identifier: MIT

// What the EntryTable reads from profiles and writes into them.
#include "tools/entry_table.h"

namespace scourwell {

// What cannot be read as records must not be lost when the file is written anew.
Outcome EntryTable::LoadDisabledItems() {
  std::vector<ProfileRecord> records;
  Files& files = locations_.needs().files;
  Outcome loaded = LoadProfile(files, locations_.needs().code_pages, profile_path_, &records);
  unreadable_ = {};
  if (loaded.code() == kPastEndOfFile || loaded.code() == kOverflow) {
    std::string content;
    Outcome copied = files.Read(profile_path_, kLargestProfile, &content);
    if (copied.ok()) copied = files.Replace(profile_path_ + ".bad", content);
    if (!copied.ok()) unreadable_ = loaded;
  } else if (!loaded.ok()) {
    unreadable_ = loaded;
  }
  claims_.Read();
  of_others_.clear();
  for (const ProfileRecord& record : records) {
    const ProfileClaims::Owner owner = claims_.Take(record);
    if (owner == ProfileClaims::Owner::Another) {
      of_others_.push_back(record);
    } else {
      AddRecord(record, true, owner == ProfileClaims::Owner::This);
    }
  }
  return loaded;
}

ProfileRecord EntryTable::RecordOf(const Entry& entry) const {
  return entry.place ? describe_(entry) : entry.record;
}

// Whose the entries are is told before they are in the profile: without that nobody knows it.
template <class Belongs>
Outcome EntryTable::SaveThose(Belongs&& belongs) {
  std::vector<ProfileRecord> records;
  std::vector<ProfileRecord> claimed;
  for (const Entry& entry : entries_) {
    if (!belongs(entry)) continue;
    records.push_back(RecordOf(entry));
    if (entry.claimed) claimed.push_back(records.back());
  }
  records.insert(records.end(), of_others_.begin(), of_others_.end());
  if (Outcome told = claims_.Write(claimed); !told.ok()) return told;
  return SaveProfile(locations_.needs().files, locations_.needs().code_pages, profile_path_,
                     records);
}

// What the profile holds already, as it reads now: marks that were not applied stay out of it.
Outcome EntryTable::SaveHeldItems() {
  return SaveThose([](const Entry& entry) { return entry.held; });
}

Outcome EntryTable::SaveDisabledItems(bool with_pending) {
  return SaveThose([&](const Entry& entry) {
    const bool pending = with_pending && entry.held && (!entry.present || entry.partial);
    return entry.status == EntryStatus::Disabled || pending;
  });
}

Outcome EntryTable::SaveTo(const std::string& path) const {
  std::vector<ProfileRecord> records;
  for (const Entry& entry : entries_) {
    if (entry.status != EntryStatus::Disabled) continue;
    records.push_back(RecordOf(entry));
  }
  return locations_.needs().files.Replace(path,
                                          ProfileText(records, locations_.needs().code_pages));
}

Outcome EntryTable::LoadFrom(const std::string& path) {
  std::vector<ProfileRecord> records;
  Outcome loaded =
      LoadProfile(locations_.needs().files, locations_.needs().code_pages, path, &records);
  for (const ProfileRecord& record : records) AddRecord(record, false);
  return loaded;
}

}  // namespace scourwell
