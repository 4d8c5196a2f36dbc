// SPDX-License-Identifier: MIT
#pragma once

#include <doctest/doctest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "offline/hive_file.h"
#include "offline/offline_machine.h"
#include "offline/offline_registry.h"
#include "tests/offline/make_hive.h"
#include "tests/offline/temporary_folder.h"

namespace scourwell::test {

inline constexpr char kSoftware[] = "WINDOWS/system32/config/SOFTWARE";
inline constexpr char kSystemHive[] = "WINDOWS/system32/config/SYSTEM";
inline constexpr char kNtVersion[] = "Microsoft\\Windows NT\\CurrentVersion";

inline RegValue TextOf(const std::string& text) { return {kRegText, text + std::string(1, '\0')}; }
inline RegValue NumberOf(std::uint32_t number) {
  std::string bytes;
  for (int i = 0; i < 4; ++i) bytes += static_cast<char>(number >> (8 * i));
  return {kRegDword, bytes};
}

// A disk in the making. Hives begin empty, at the first thing that is put into them.
class DiskBuilder : public TemporaryFolder {
 public:
  // With an empty registry of its own.
  DiskBuilder& Windows() {
    Key(kSoftware, kNtVersion);
    return Number(kSystemHive, "Select", "Current", 1);
  }
  DiskBuilder& Key(const std::string& hive, const std::string& key) {
    CHECK(In(hive).CreateKey(RootKey::LocalMachine, "H\\" + key) == kRegOk);
    return *this;
  }
  DiskBuilder& Set(const std::string& hive, const std::string& key, const std::string& name,
                   const RegValue& value) {
    CHECK(In(hive).SetValue(RootKey::LocalMachine, "H\\" + key, name, value) == kRegOk);
    return *this;
  }
  DiskBuilder& Text(const std::string& hive, const std::string& key, const std::string& name,
                    const std::string& text) {
    return Set(hive, key, name, TextOf(text));
  }
  DiskBuilder& Number(const std::string& hive, const std::string& key, const std::string& name,
                      std::uint32_t number) {
    return Set(hive, key, name, NumberOf(number));
  }
  // A user with a hive, whom the registry names.
  DiskBuilder& User(const std::string& sid, const std::string& profile) {
    const std::string folder = ReplaceAll(profile, "\\", "/");
    Key(folder + "/NTUSER.DAT", "Software");
    return Text(kSoftware, std::string(kNtVersion) + "\\ProfileList\\" + sid, "ProfileImagePath",
                "%SystemDrive%\\" + profile);
  }
  void Save() {
    for (auto& [path, hive] : hives_) CHECK(hive->file.Save().ok());
    hives_.clear();
  }

  std::vector<MountedDrive> drives(char letter = 'C') const { return {{letter, path()}}; }
  std::unique_ptr<OfflineMachine> Open(const std::string& windows = {}) {
    Save();
    std::unique_ptr<OfflineMachine> machine;
    const Outcome opened = OfflineMachine::Open(drives(), windows, &machine);
    REQUIRE_MESSAGE(opened.ok(), opened.description());
    return machine;
  }

 private:
  struct Hive {
    Hive(PosixFiles& files, const std::string& path) : file(files, path, {}) {}

    HiveFile file;
    std::vector<RegistryMount> mounts = {{RootKey::LocalMachine, "H", &file, {}}};
    OfflineRegistry registry{mounts, OfflineRegistry::View::Only};
  };

  Registry& In(const std::string& path) {
    std::unique_ptr<Hive>& hive = hives_[path];
    if (!hive) {
      if (!Has(path)) Put(path, EmptyHive());
      hive = std::make_unique<Hive>(files_, "C:\\" + ReplaceAll(path, "/", "\\"));
    }
    return hive->registry;
  }

  PosixFiles files_{drives()};
  std::map<std::string, std::unique_ptr<Hive>> hives_;
};

// The names of the keys, or of the values, right below a key, in alphabetical order; "!" and a
// failure.
inline std::string NamesBelow(Registry& registry, RootKey root, const std::string& path,
                              bool values = false) {
  std::vector<std::string> names;
  const auto keep = [&](const std::string& name) {
    names.push_back(name);
    return true;
  };
  const RegStatus status =
      values ? registry.EnumValues(root, path,
                                   [&](const std::string& name, const auto&) { return keep(name); })
             : registry.EnumKeys(root, path, keep);
  std::sort(names.begin(), names.end());
  std::string text = status ? "!" + std::to_string(status) + " " : "";
  for (const std::string& name : names) text += name + " ";
  return text;
}

}  // namespace scourwell::test
