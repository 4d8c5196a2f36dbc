#pragma once

#include "platform/system.h"

namespace scourwell {

class SystemWin : public System {
 public:
  bool QueryVersion(unsigned record_size, VersionRecord* record) override;
  std::string WindowsFolder() override;
  std::string SystemFolder() override;
  std::string TemporaryFolder() override;
  std::string ShellFolder(int folder_id) override;
  std::string Environment(const std::string& name) override;
  std::string ErrorText(std::uint32_t code) override;
  std::uint32_t LastError() override;
  std::uint32_t OwnProcessId() override;
  Outcome TerminateProcess(std::uint32_t process_id) override;
  Outcome MoveAtReboot(const std::string& path, const std::string& target) override;
};

}  // namespace scourwell
