// SPDX-License-Identifier: MIT
#pragma once

#include "platform/profiles.h"
#include "platform/registry.h"
#include "platform/system.h"

namespace scourwell {

// The ports of plain folders: there is no Windows around them, and nothing of this machine's own
// is meant.

// What is set is forgotten with the run.
class NoRegistry : public Registry {
 public:
  RegStatus TryOpen(RootKey, const std::string&, std::uint32_t) override { return kRegNotFound; }
  RegStatus Count(RootKey, const std::string&, RegCounts*) override { return kRegNotFound; }
  RegStatus QueryValue(RootKey, const std::string&, const std::string&, RegValue*) override {
    return kRegNotFound;
  }
  RegStatus CreateKey(RootKey, const std::string&) override { return kRegOk; }
  RegStatus SetValue(RootKey, const std::string&, const std::string&, const RegValue&) override {
    return kRegOk;
  }
  RegStatus DeleteValue(RootKey, const std::string&, const std::string&) override {
    return kRegNotFound;
  }
  RegStatus IsLink(RootKey, const std::string&, bool*) override { return kRegNotFound; }
  RegStatus DeleteKeyCall(RootKey, const std::string&) override { return kRegNotFound; }
  RegStatus EnumKeys(RootKey, const std::string&, const VisitKey&) override { return kRegNotFound; }
  RegStatus EnumValues(RootKey, const std::string&, const VisitValue&) override {
    return kRegNotFound;
  }
};

class NoSystem : public System {
 public:
  bool QueryVersion(unsigned, VersionRecord*) override { return false; }
  std::string WindowsFolder() override { return {}; }
  std::string SystemFolder() override { return {}; }
  std::string TemporaryFolder() override { return {}; }
  std::string ShellFolder(int) override { return {}; }
  std::string Environment(const std::string&) override { return {}; }
  std::string ErrorText(std::uint32_t) override { return {}; }
  std::uint32_t LastError() override { return 0; }
  std::uint32_t OwnProcessId() override { return 0; }
  std::string RandomBytes(std::size_t) override { return {}; }
  Outcome TerminateProcess(std::uint32_t, const std::function<bool()>&) override {
    return Outcome::Failed(kPermissionDenied);
  }
  Outcome DeleteAtReboot(const std::string&) override { return Outcome::Failed(kPermissionDenied); }
};

class NoProfiles : public Profiles {
 public:
  std::string ReadProfile(const std::string&, const std::string&, const std::string&) override {
    return {};
  }
  Outcome WriteProfile(const std::string&, const std::string&, const std::optional<std::string>&,
                       const std::string&) override {
    return Outcome::Failed(kPermissionDenied);
  }
};

}  // namespace scourwell
