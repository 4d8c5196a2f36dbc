// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "offline/registry_file.h"
#include "platform/registry.h"

namespace scourwell {

// Which part of which file stands for a key of the running machine, and all below it.
struct RegistryMount {
  RootKey root = RootKey::LocalMachine;
  std::string path;  // below the root; empty: the root itself
  RegistryFile* file = nullptr;
  std::string inner;    // where that lies in the file
  bool hidden = false;  // a second name, which a listing of the key above does not show
};

// The files of a machine that does not run, put together as it would show them: the mount with the
// longest path has a key. HKEY_CURRENT_USER is a key below HKEY_USERS, HKEY_CLASSES_ROOT the user's
// classes above those of the machine. Links are not followed: what Windows links is mounted.
class OfflineRegistry : public Registry {
 public:
  enum class View { Only, Of32Bit };

  // The mounts stay as they are as long as the registry lives.
  OfflineRegistry(const std::vector<RegistryMount>& mounts, View view);

  // The key below HKEY_USERS of whoever is acted as; empty: nobody.
  void ActAs(std::string user) { user_ = std::move(user); }
  // What belongs to that user and to nobody else: no machine, and of the classes only the user's.
  void ShowUserOnly(bool only) { user_only_ = only; }

  RegStatus TryOpen(RootKey root, const std::string& path, std::uint32_t rights) override;
  RegStatus Count(RootKey root, const std::string& path, RegCounts* counts) override;
  RegStatus QueryValue(RootKey root, const std::string& path, const std::string& name,
                       RegValue* value) override;
  RegStatus CreateKey(RootKey root, const std::string& path) override;
  RegStatus SetValue(RootKey root, const std::string& path, const std::string& name,
                     const RegValue& value) override;
  RegStatus DeleteValue(RootKey root, const std::string& path, const std::string& name) override;
  RegStatus IsLink(RootKey root, const std::string& path, bool* is_link) override;
  RegStatus DeleteKeyCall(RootKey root, const std::string& path) override;
  RegStatus EnumKeys(RootKey root, const std::string& path, const VisitKey& visit) override;
  RegStatus EnumValues(RootKey root, const std::string& path, const VisitValue& visit) override;

 private:
  // A key in a file.
  struct Place {
    RegistryFile* file = nullptr;
    RegistryFile::Node node = 0;  // 0: not there
    std::string path;             // in the file
    bool is_mount = false;        // a file begins here: it stays
  };
  // What a path means: at most two places, the first one stronger, and the names of the mounts
  // right below it.
  struct Meaning {
    std::vector<Place> places;
    std::vector<std::string> mounts;

    bool Exists() const;
  };

  using Mounts = std::vector<const RegistryMount*>;

  void AddMounts(const Mounts& mounts, RootKey root, const std::string& path,
                 const RegistryMount** innermost, Meaning* meaning) const;
  RegStatus Resolve(RootKey root, const std::string& path, Meaning* meaning);
  void AddPlaces(RootKey root, const std::string& path, Meaning* meaning);
  std::string InView(RootKey root, const std::string& path) const;
  RegStatus Find(RootKey root, const std::string& path, Place* place);
  RegStatus MakeKey(RootKey root, const std::string& path, Place* place);

  // All of them, and by the first part of their paths, for there can be hundreds of users.
  Mounts mounts_;
  std::unordered_map<std::string, Mounts, NoCaseHash, NoCaseEqual> by_first_part_;
  View view_;
  std::string user_;
  bool user_only_ = false;
};

}  // namespace scourwell
