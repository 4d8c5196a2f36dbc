// SPDX-License-Identifier: MIT
#include <algorithm>
#include <deque>

#include "offline/hive_file.h"
#include "offline/machine_facts.h"
#include "offline/registry_set.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr RootKey kMachine = RootKey::LocalMachine;
constexpr char kProfileList[] = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\ProfileList";
constexpr char kClassesEnding[] = "_Classes";
constexpr const char* kUserHives[] = {"NTUSER.DAT", "NTUSER.MAN"};
constexpr const char* kClassHives[] = {
    "AppData\\Local\\Microsoft\\Windows\\UsrClass.dat",
    "Local Settings\\Application Data\\Microsoft\\Windows\\UsrClass.dat",
};

class NtRegistry : public RegistrySet {
 public:
  NtRegistry(PosixFiles& files, const std::string& windows, OnUnread on_unread)
      : files_(files), windows_(windows), on_unread_(std::move(on_unread)) {
    const std::string config = AddPathToFileName(windows, "System32\\config\\");
    HiveFile& software = Add(config + "SOFTWARE");
    HiveFile& system = Add(config + "SYSTEM");
    mounts_ = {{kMachine, "SOFTWARE", &software, {}}, {kMachine, "SYSTEM", &system, {}}};
    AddControlSet(system);
    if (Has(config + "DEFAULT")) {
      mounts_.push_back({RootKey::Users, ".DEFAULT", &Add(config + "DEFAULT"), {}});
    }
    FindUsers();
  }

  bool writable() const override { return true; }
  void Leave(const OfflineUser& user) override {
    for (const RegistryMount& mount : mounts_) {
      if (mount.root != RootKey::Users || !IsOf(user, mount.path)) continue;
      static_cast<HiveFile*>(mount.file)->Release();
    }
  }
  Outcome Save() override {
    Outcome first;
    for (HiveFile& hive : hives_) {
      Outcome saved = hive.Save();
      if (saved.ok()) continue;
      on_unread_({hive.path(), saved.description()});
      if (first.ok()) first = std::move(saved).With("File: ", hive.path());
    }
    return first;
  }

 private:
  static bool IsOf(const OfflineUser& user, std::string_view path) {
    const std::string_view first = FirstPart(path);
    return EqualsNoCase(first, user.sid) || EqualsNoCase(first, user.sid + kClassesEnding);
  }

  HiveFile& Add(const std::string& path) {
    const std::string real = files_.ShortPath(path);  // as it is spelt on the disk
    return hives_.emplace_back(files_, real.empty() ? path : real,
                               [this](const std::string& place, const std::string& reason) {
                                 on_unread_({place, reason});
                               });
  }

  bool Has(const std::string& path) {
    DirEntry entry;
    return files_.Stat(path, &entry).ok() && !entry.IsFolder() && !entry.IsLink();
  }

  // The running machine has the current one under a name of its own.
  void AddControlSet(HiveFile& system) {
    OfflineRegistry registry(mounts_, OfflineRegistry::View::Only);
    const std::uint32_t number = NumberValue(registry, kMachine, "SYSTEM\\Select", "Current");
    mounts_.push_back({kMachine, "SYSTEM\\CurrentControlSet", &system,
                       "ControlSet" + Padded(number ? number : 1, 3)});
  }

  // Of the variables those that stand in such paths.
  std::string Expand(std::string path) const {
    const std::string drive = windows_.substr(0, 2);
    for (const auto& [name, value] : {std::pair{"%SystemRoot%", &windows_},
                                      {"%windir%", &windows_},
                                      {"%SystemDrive%", &drive}}) {
      const std::size_t at = FindNoCase(path, name);
      if (at != path.npos) path.replace(at, std::string_view(name).size(), *value);
    }
    return path;
  }

  void FindUsers() {
    const std::vector<RegistryMount> machine = mounts_;
    OfflineRegistry registry(machine, OfflineRegistry::View::Only);
    std::vector<std::string> sids;
    registry.EnumKeys(kMachine, kProfileList, [&](const std::string& sid) {
      sids.push_back(sid);
      return true;
    });
    for (const std::string& sid : sids) {
      const std::string key = std::string(kProfileList) + kSeparator + sid;
      AddUser(sid, Expand(TextValue(registry, kMachine, key, "ProfileImagePath")));
    }
    AddUnlisted(Expand(TextValue(registry, kMachine, kProfileList, "ProfilesDirectory")));
  }

  void AddUser(const std::string& sid, std::string profile) {
    DirEntry entry;
    profile = std::string(WithoutEndSeparators(profile));
    if (!files_.Stat(profile, &entry).ok() || !entry.IsFolder() || entry.IsLink()) return;
    profile = files_.ShortPath(profile);
    users_.push_back({std::string(FileNamePart(profile)), sid, profile});
    for (const char* name : kUserHives) {
      const std::string path = AddPathToFileName(profile, name);
      if (!Has(path)) continue;
      mounts_.push_back({RootKey::Users, sid, &Add(path), {}});
      break;
    }
    for (const char* name : kClassHives) {
      const std::string path = AddPathToFileName(profile, name);
      if (!Has(path)) continue;
      HiveFile& classes = Add(path);
      mounts_.push_back({RootKey::Users, sid + kClassesEnding, &classes, {}});
      mounts_.push_back({RootKey::Users, sid + "\\Software\\Classes", &classes, {}});
      break;
    }
  }

  // Profiles that the list does not name, beside those that it does.
  void AddUnlisted(const std::string& profiles_folder) {
    std::vector<std::string> folders = {profiles_folder};
    for (const OfflineUser& user : users_) {
      std::string folder(FolderPart(user.profile));
      // The services have theirs among the files of the system.
      if (!IsAtOrBelow(folder, windows_)) folders.push_back(std::move(folder));
    }
    std::ranges::sort(folders, NoCaseLess());
    const auto same = std::ranges::unique(folders, NoCaseEqual());
    folders.erase(same.begin(), same.end());
    for (const std::string& folder : folders) {
      std::vector<std::string> names;
      if (folder.size() > 3) {
        static_cast<void>(
            files_.ListNames(AddPathToFileName(folder, "*.*"), [&](const DirEntry& entry) {
              if (entry.IsFolder() && !entry.IsLink()) names.push_back(entry.name);
              return true;
            }));
      }
      for (const std::string& name : names) AddIfUnlisted(AddPathToFileName(folder, name), name);
    }
  }

  void AddIfUnlisted(const std::string& profile, const std::string& name) {
    const bool listed = std::ranges::any_of(
        users_, [&](const OfflineUser& user) { return EqualsNoCase(user.profile, profile); });
    if (!listed && Has(AddPathToFileName(profile, kUserHives[0]))) AddUser(name, profile);
  }

  PosixFiles& files_;
  std::string windows_;
  OnUnread on_unread_;
  std::deque<HiveFile> hives_;  // the mounts point at them
};

}  // namespace

std::unique_ptr<RegistrySet> OpenNtRegistry(PosixFiles& files, const std::string& windows,
                                            RegistrySet::OnUnread on_unread) {
  return std::make_unique<NtRegistry>(files, windows, std::move(on_unread));
}

}  // namespace scourwell
