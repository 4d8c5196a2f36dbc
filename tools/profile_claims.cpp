// SPDX-License-Identifier: MIT
#include "tools/profile_claims.h"

#include <algorithm>

#include "machine/file_utils.h"
#include "text/text.h"
#include "tools/win_ini_store.h"

namespace scourwell {
namespace {

constexpr char kUsers[] = "Users";  // the folder of the lists in the side folder
constexpr char kListEnd[] = ".pro";

// The other fields are told in the language of the day.
bool SameRecord(const ProfileRecord& a, const ProfileRecord& b) {
  constexpr ProfileRecord::Field kTold[] = {ProfileRecord::kName, ProfileRecord::kLocation,
                                            ProfileRecord::kCommand};
  return std::ranges::all_of(kTold, [&](auto field) { return a.fields[field] == b.fields[field]; });
}

bool TakeFrom(std::vector<ProfileRecord>* list, const ProfileRecord& record) {
  const auto found = std::ranges::find_if(
      *list, [&](const ProfileRecord& listed) { return SameRecord(listed, record); });
  if (found == list->end()) return false;
  list->erase(found);
  return true;
}

}  // namespace

std::string ProfileClaims::Path(const std::string& user) const {
  const std::string side = SideFolder(locations_.needs().folders);
  return AddPathToFileName(AddPathToFileName(side, kUsers), user + kListEnd);
}

// A list that cannot be read says nothing: its entries are everybody's, as they were before there
// were lists.
void ProfileClaims::Read() {
  own_.clear();
  others_.clear();
  any_ = false;
  if (locations_.user().empty()) return;
  const StartupLocations::Needs& needs = locations_.needs();
  std::vector<std::string> names;
  static_cast<void>(needs.files.List(Path("*"), [&](const DirEntry& entry) {
    if (!entry.IsFolder()) names.push_back(entry.name);
    return true;
  }));
  const std::string own = Path(locations_.user());
  for (const std::string& name : names) {
    const bool mine = EqualsNoCase(name, FileNamePart(own));
    any_ = any_ || mine;
    static_cast<void>(LoadProfile(needs.files, needs.code_pages,
                                  AddPathToFileName(FolderPart(own), name),
                                  mine ? &own_ : &others_));
  }
}

ProfileClaims::Owner ProfileClaims::Take(const ProfileRecord& record) {
  const StartupLocation* place = FindPlace(record.fields[ProfileRecord::kLocation]);
  if (!place || !locations_.IsOfUser(*place)) return Owner::Nobody;
  if (TakeFrom(&own_, record)) return Owner::This;
  return TakeFrom(&others_, record) ? Owner::Another : Owner::Nobody;
}

Outcome ProfileClaims::Write(const std::vector<ProfileRecord>& records) {
  if (locations_.user().empty() || (records.empty() && !any_)) return {};
  const StartupLocations::Needs& needs = locations_.needs();
  if (!records.empty()) {
    if (Outcome made = MakeSideFolder(needs.files, needs.folders, kUsers); !made.ok()) return made;
  }
  Outcome saved = SaveProfile(needs.files, needs.code_pages, Path(locations_.user()), records);
  if (saved.ok()) any_ = !records.empty();
  return saved;
}

}  // namespace scourwell
