// SPDX-License-Identifier: MIT
#pragma once

#include "platform/system.h"
#include "platform/win/system_calls.h"

namespace scourwell {

class SystemWin : public System {
 public:
  explicit SystemWin(const SystemCalls& calls = RunningSystemCalls()) : calls_(calls) {}

  bool QueryVersion(unsigned record_size, VersionRecord* record) override;
  std::string WindowsFolder() override;
  std::string SystemFolder() override;
  std::string Wow64Folder() override;
  std::string TemporaryFolder() override;
  std::string ShellFolder(int folder_id) override;
  std::string Environment(const std::string& name) override;
  std::string ErrorText(std::uint32_t code) override;
  std::uint32_t LastError() override;
  std::uint32_t OwnProcessId() override;
  std::string RandomBytes(std::size_t count) override;
  Outcome TerminateProcess(std::uint32_t process_id, const std::function<bool()>& go_on) override;
  Outcome DeleteAtReboot(const std::string& path) override;

 private:
  const SystemCalls& calls_;
};

}  // namespace scourwell
