// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "offline/machine_facts.h"
#include "offline/registry_set.h"
#include "platform/files.h"
#include "platform/registry.h"
#include "platform/system.h"

namespace scourwell {

// What a Windows that does not run would say of itself to the programs of one user. Nothing of the
// machine that looks at it gets in.
class OfflineSystem : public System {
 public:
  // `registry`: all there is, with the user's part as HKEY_CURRENT_USER.
  OfflineSystem(Files& files, Registry& registry, const MachineFacts& facts, std::string windows)
      : files_(files), registry_(registry), facts_(facts), windows_(std::move(windows)) {}

  void ActAs(const OfflineUser* user) { user_ = user; }

  bool QueryVersion(unsigned record_size, VersionRecord* record) override;
  std::string WindowsFolder() override { return windows_; }
  std::string SystemFolder() override;
  std::string Wow64Folder() override;
  std::string TemporaryFolder() override;
  std::string ShellFolder(int folder_id) override;
  std::string Environment(const std::string& name) override;
  std::string ErrorText(std::uint32_t) override { return {}; }
  std::uint32_t LastError() override { return 0; }
  std::uint32_t OwnProcessId() override;
  std::string RandomBytes(std::size_t count) override;
  Outcome TerminateProcess(std::uint32_t, const std::function<bool()>&) override;
  Outcome DeleteAtReboot(const std::string&) override;

 private:
  bool IsVista() const { return facts_.version.platform == 2 && facts_.version.major >= 6; }
  std::string Expand(std::string_view text);
  std::string Variable(const std::string& name);
  std::string ProfilesFolder();
  std::string EverybodysProfile();
  std::string OwnProfile() const { return user_ ? user_->profile : std::string(); }
  std::string Spelled(const std::string& path);

  Files& files_;
  Registry& registry_;
  const MachineFacts& facts_;
  std::string windows_;
  const OfflineUser* user_ = nullptr;
  int depth_ = 0;  // of variables that name others
};

}  // namespace scourwell
