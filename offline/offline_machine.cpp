// SPDX-License-Identifier: MIT
#include "offline/offline_machine.h"

#include <algorithm>

#include "offline/iconv_code_pages.h"
#include "offline/offline_ports.h"
#include "offline/offline_system.h"
#include "offline/program_versions.h"
#include "offline/windows_finder.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr char kClassesEnding[] = "_Classes";

class MountedMachine : public OfflineMachine {
 public:
  MountedMachine(const std::vector<MountedDrive>& drives, const WindowsPlace& place)
      : files_(drives), found_{place.folder, {}} {
    const auto on_unread = [this](Unread unread) { unread_.push_back(std::move(unread)); };
    unsigned code_page = 1252;
    set_ = place.is_nt ? OpenNtRegistry(files_, place.folder, on_unread)
                       : OpenW9xRegistry(files_, place.folder, &code_page, on_unread);
    all_ = std::make_unique<OfflineRegistry>(set_->mounts(), OfflineRegistry::View::Only);
    facts_ = place.is_nt ? FactsOfNt(*all_) : FactsOfW9x(*all_);
    found_.version = facts_.name;
    if (facts_.is_64) {
      of_32_bit_ =
          std::make_unique<OfflineRegistry>(set_->mounts(), OfflineRegistry::View::Of32Bit);
    }
    code_pages_ = std::make_unique<IconvCodePages>(facts_.code_page);
    versions_ = std::make_unique<ProgramVersions>(files_, *code_pages_);
    shell_ = std::make_unique<OfflineShell>(files_, *code_pages_);
    // Its folders are looked up whatever part of the registry is shown.
    own_ = std::make_unique<OfflineRegistry>(set_->mounts(), OfflineRegistry::View::Only);
    system_ = std::make_unique<OfflineSystem>(files_, *own_, facts_, place.folder);
    os_ = std::make_unique<COpSysInfo>(*system_);
  }

  PosixFiles& files() override { return files_; }
  Registry& registry() override { return of_32_bit_ ? *of_32_bit_ : *all_; }
  Registry* registry64() override { return of_32_bit_ ? all_.get() : nullptr; }
  System& system() override { return *system_; }
  Versions& versions() override { return *versions_; }
  CodePages& code_pages() override { return *code_pages_; }
  Processes& processes() override { return processes_; }
  Shell& shell() override { return *shell_; }
  const COpSysInfo& os() override { return *os_; }
  const WindowsFound& windows() const override { return found_; }
  SystemFolders Folders(ErrorLog& log, const std::string& application) override {
    return ComputeSystemFolders(*system_, of_32_bit_ ? *of_32_bit_ : *own_, *os_, log, application);
  }

  const std::vector<OfflineUser>& users() const override { return set_->users(); }
  void ActAs(const OfflineUser* user) override {
    if (user_ && user_ != user) set_->Leave(*user_);
    user_ = user;
    const std::string sid = user ? user->sid : std::string();
    for (OfflineRegistry* registry : {all_.get(), of_32_bit_.get(), own_.get()}) {
      if (registry) registry->ActAs(sid);
    }
    system_->ActAs(user);
  }
  void ShowUserOnly(bool only) override {
    all_->ShowUserOnly(only);
    if (of_32_bit_) of_32_bit_->ShowUserOnly(only);
  }
  Finding ForEveryone(const Finding& finding) const override;

  bool read_only() const override { return files_.IsReadOnly(found_.folder.front()); }
  bool registry_writable() const override { return set_->writable(); }
  const std::vector<Unread>& unread() const override { return unread_; }
  Outcome SaveRegistry() override { return set_->Save(); }

  const MachineFacts& facts() const { return facts_; }

 private:
  std::vector<Unread> unread_;
  PosixFiles files_;
  WindowsFound found_;
  std::unique_ptr<RegistrySet> set_;
  std::unique_ptr<OfflineRegistry> all_;
  std::unique_ptr<OfflineRegistry> of_32_bit_;  // null where there is one view only
  std::unique_ptr<OfflineRegistry> own_;
  MachineFacts facts_;
  std::unique_ptr<IconvCodePages> code_pages_;
  std::unique_ptr<ProgramVersions> versions_;
  std::unique_ptr<OfflineShell> shell_;
  OfflineProcesses processes_;
  std::unique_ptr<OfflineSystem> system_;
  std::unique_ptr<COpSysInfo> os_;
  const OfflineUser* user_ = nullptr;
};

// One Windows of the drives, opened. Its registry knows which letter its drive has.
struct Candidate {
  std::string mounted;  // its folder by the letters that were given
  std::unique_ptr<MountedMachine> machine;
};

Candidate OpenCandidate(std::vector<MountedDrive> drives, WindowsPlace place) {
  Candidate candidate{place.folder, std::make_unique<MountedMachine>(drives, place)};
  const std::string& root = candidate.machine->facts().system_root;
  if (!IsAbsolutePath(root) || BeginsWithSeparator(root)) return candidate;
  const auto letter = static_cast<char>(root[0] & ~0x20);
  const char given = place.folder[0];
  const auto has = [&](char each) {
    return std::ranges::any_of(
        drives, [&](const MountedDrive& drive) { return (drive.letter & ~0x20) == each; });
  };
  if (letter == given || has(letter)) return candidate;
  for (MountedDrive& drive : drives) {
    if ((drive.letter & ~0x20) == given) drive.letter = letter;
  }
  place.folder[0] = letter;
  candidate.machine = std::make_unique<MountedMachine>(drives, place);
  return candidate;
}

Outcome FindCandidates(const std::vector<MountedDrive>& drives, std::vector<Candidate>* found) {
  PosixFiles files(drives);
  if (files.Drives().size() != drives.size()) {
    return Outcome::Failed(kPathNotFound, "A folder of a drive cannot be opened");
  }
  for (const WindowsPlace& place : FindWindows(files)) {
    found->push_back(OpenCandidate(drives, place));
  }
  return found->empty() ? Outcome::Failed(kFileNotFound, "There is no Windows") : Outcome();
}

}  // namespace

Finding MountedMachine::ForEveryone(const Finding& finding) const {
  const auto user = std::ranges::find(users(), finding.user, &OfflineUser::name);
  if (finding.user.empty() || user == users().end()) return finding;
  Finding moved = finding;
  RegistryPlace* place = nullptr;
  if (auto* key = std::get_if<FoundKey>(&moved.object)) place = &key->place;
  if (auto* value = std::get_if<FoundValue>(&moved.object)) place = &value->key;
  if (!place) return moved;
  if (place->root == RootKey::CurrentUser) {
    place->path = AddPathToFileName(user->sid, place->path);
  } else if (place->root == RootKey::ClassesRoot) {
    place->path = AddPathToFileName(user->sid + kClassesEnding, place->path);
  } else {
    return moved;
  }
  place->root = RootKey::Users;
  return moved;
}

Outcome OfflineMachine::Find(const std::vector<MountedDrive>& drives,
                             std::vector<WindowsFound>* found) {
  std::vector<Candidate> candidates;
  if (Outcome looked = FindCandidates(drives, &candidates); !looked.ok()) return looked;
  for (const Candidate& candidate : candidates) found->push_back(candidate.machine->windows());
  return {};
}

Outcome OfflineMachine::Open(const std::vector<MountedDrive>& drives,
                             const std::string& windows_folder,
                             std::unique_ptr<OfflineMachine>* machine) {
  std::vector<Candidate> candidates;
  if (Outcome looked = FindCandidates(drives, &candidates); !looked.ok()) return looked;
  if (windows_folder.empty() && candidates.size() > 1) {
    return Outcome::Failed(kTypeMismatch, "There are several Windows folders");
  }
  for (Candidate& candidate : candidates) {
    const bool meant = windows_folder.empty() ||
                       EqualsNoCase(windows_folder, candidate.machine->windows().folder) ||
                       EqualsNoCase(windows_folder, candidate.mounted);
    if (!meant) continue;
    *machine = std::move(candidate.machine);
    return {};
  }
  return Outcome::Failed(kFileNotFound, "There is no Windows in that folder");
}

}  // namespace scourwell
