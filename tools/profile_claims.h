// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "tools/profile_file.h"
#include "tools/startup_locations.h"

namespace scourwell {

// Whose the records of the profile are. All users of the computer share it, but some entries lie in
// the part of one user: another one who put such an entry back would get it himself, and its owner
// would have lost it. So each user has a list beside the profile of those that are his, in a file
// named after him; what no list names is everybody's.
class ProfileClaims {
 public:
  enum class Owner { Nobody, This, Another };

  explicit ProfileClaims(const StartupLocations& locations) : locations_(locations) {}

  // Reads the lists of all users.
  void Read();
  // Whose a record is that was read from the profile. Each line of a list stands for one record.
  Owner Take(const ProfileRecord& record);
  // This user's list, before the profile itself is written.
  Outcome Write(const std::vector<ProfileRecord>& records);

 private:
  std::string Path(const std::string& user) const;

  const StartupLocations& locations_;
  std::vector<ProfileRecord> own_;
  std::vector<ProfileRecord> others_;
  bool any_ = false;  // a list of this user
};

}  // namespace scourwell
