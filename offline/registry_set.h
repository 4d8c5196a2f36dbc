// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "offline/offline_registry.h"
#include "offline/posix_files.h"

namespace scourwell {

struct OfflineUser {
  std::string name;     // of the profile's folder, or as Windows 95, 98 and Me list it
  std::string sid;      // the key below HKEY_USERS; on Windows 95, 98 and Me the name
  std::string profile;  // "C:\Documents and Settings\Ann"
};

// What could not be looked at, and why.
struct Unread {
  std::string place;
  std::string reason;
};

// The registry files of one Windows, and the users whom they name.
class RegistrySet {
 public:
  using OnUnread = std::function<void(Unread)>;

  virtual ~RegistrySet() = default;

  const std::vector<RegistryMount>& mounts() const { return mounts_; }
  const std::vector<OfflineUser>& users() const { return users_; }
  virtual bool writable() const = 0;
  // Nobody needs the files of this user for now.
  virtual void Leave(const OfflineUser&) {}
  // A hive that cannot be written stays as it was; the first failure is told.
  virtual Outcome Save() { return {}; }

 protected:
  std::vector<RegistryMount> mounts_;
  std::vector<OfflineUser> users_;
};

std::unique_ptr<RegistrySet> OpenNtRegistry(PosixFiles& files, const std::string& windows,
                                            RegistrySet::OnUnread on_unread);
// `code_page`: the machine's own, which its registry names and which reading it needs.
std::unique_ptr<RegistrySet> OpenW9xRegistry(PosixFiles& files, const std::string& windows,
                                             unsigned* code_page, RegistrySet::OnUnread on_unread);

}  // namespace scourwell
