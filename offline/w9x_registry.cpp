// SPDX-License-Identifier: MIT
#include <deque>

#include "offline/creg_file.h"
#include "offline/iconv_code_pages.h"
#include "offline/machine_facts.h"
#include "offline/registry_set.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr RootKey kMachine = RootKey::LocalMachine;
constexpr char kProfileList[] = "Software\\Microsoft\\Windows\\CurrentVersion\\ProfileList";
constexpr char kClasses[] = "Software\\Classes";
constexpr char kEverybody[] = ".Default";

class W9xRegistry : public RegistrySet {
 public:
  W9xRegistry(PosixFiles& files, const std::string& windows, unsigned* code_page,
              OnUnread on_unread)
      : files_(files), windows_(windows), on_unread_(std::move(on_unread)) {
    AddMachine(code_page);
    if (CregFile* classes = Add("CLASSES.DAT", false)) {
      mounts_.push_back({kMachine, kClasses, classes, WayToClasses(*classes)});
    }
    if (CregFile* user = Add("USER.DAT", true)) mounts_.push_back({RootKey::Users, {}, user, {}});
    FindUsers();
  }

  bool writable() const override { return false; }

 private:
  // Its own text says in which code page it is to be read.
  void AddMachine(unsigned* code_page) {
    CregFile* machine = Add("SYSTEM.DAT", true);
    if (!machine) return;
    mounts_ = {{kMachine, {}, machine, {}}};
    {
      OfflineRegistry registry(mounts_, OfflineRegistry::View::Only);
      *code_page = FactsOfW9x(registry).code_page;
    }
    if (*code_page == code_pages_.System()) return;
    code_pages_ = IconvCodePages(*code_page);
    mounts_.clear();
    loaded_.clear();
    mounts_ = {{kMachine, {}, Add("SYSTEM.DAT", true), {}}};
  }

  CregFile* Add(const std::string& below, bool wanted) {
    const std::string path = AddPathToFileName(windows_, below);
    DirEntry entry;
    if (!wanted && !files_.Stat(path, &entry).ok()) return nullptr;
    CregFile& file = loaded_.emplace_back(files_, path, code_pages_);
    const Outcome read = file.Load();
    if (!read.ok()) {
      on_unread_({path, read.description()});
      loaded_.pop_back();
      return nullptr;
    }
    if (file.damaged()) {
      on_unread_({path, "The registry file is damaged; what is left of it was read"});
    }
    return &file;
  }

  // Where the classes begin in a file of their own.
  static std::string WayToClasses(CregFile& file) {
    for (const char* way : {kClasses, "Classes"}) {
      if (file.Find(way) != 0) return way;
    }
    return {};
  }

  void FindUsers() {
    const std::vector<RegistryMount> machine = mounts_;
    OfflineRegistry registry(machine, OfflineRegistry::View::Only);
    users_.push_back({kEverybody, kEverybody, windows_});
    std::vector<std::string> names;
    registry.EnumKeys(kMachine, kProfileList, [&](const std::string& name) {
      names.push_back(name);
      return true;
    });
    for (const std::string& name : names) {
      const std::string key = std::string(kProfileList) + kSeparator + name;
      AddUser(name, TextValue(registry, kMachine, key, "ProfileImagePath"));
    }
  }

  void AddUser(const std::string& name, std::string profile) {
    DirEntry entry;
    if (profile.empty()) profile = windows_ + "\\Profiles\\" + name;
    if (!files_.Stat(profile, &entry).ok() || !entry.IsFolder()) return;
    profile = files_.ShortPath(profile);
    users_.push_back({name, name, profile});
    if (!IsAtOrBelow(profile, windows_)) return;
    CregFile* file = Add(profile.substr(windows_.size() + 1) + "\\USER.DAT", false);
    if (!file) return;
    std::shared_ptr<const KeyNames> keys;
    // All of it lies below the first key, whatever that is called.
    static_cast<void>(file->ReadNames(file->Root(), &keys));
    if (keys->children().empty()) return;
    mounts_.push_back({RootKey::Users, name, file, keys->children().front().name});
  }

  PosixFiles& files_;
  std::string windows_;
  OnUnread on_unread_;
  IconvCodePages code_pages_{1252};
  std::deque<CregFile> loaded_;  // the mounts point at them
};

}  // namespace

std::unique_ptr<RegistrySet> OpenW9xRegistry(PosixFiles& files, const std::string& windows,
                                             unsigned* code_page, RegistrySet::OnUnread on_unread) {
  return std::make_unique<W9xRegistry>(files, windows, code_page, std::move(on_unread));
}

}  // namespace scourwell
