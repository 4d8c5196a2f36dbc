// SPDX-License-Identifier: MIT
#pragma once

#include "platform/clock.h"
#include "platform/profiles.h"
#include "platform/shell.h"
#include "platform/win/shell_calls.h"
#include "platform/win/system_calls.h"
#include "platform/win/unique_handle.h"

namespace scourwell {

class ClockWin : public Clock {
 public:
  explicit ClockWin(const SystemCalls& calls = RunningSystemCalls()) : calls_(calls) {}

  LocalTime Now() override;
  std::uint32_t Ticks() override;
  LocalTime ToLocal(FileTime time) override;
  std::string ShortDate(const LocalTime& time) override;
  std::string TimeOfDay(const LocalTime& time) override;

 private:
  const SystemCalls& calls_;
};

class ProfilesWin : public Profiles {
 public:
  explicit ProfilesWin(const SystemCalls& calls = RunningSystemCalls()) : calls_(calls) {}

  std::string ReadProfile(const std::string& section, const std::string& key,
                          const std::string& file) override;
  Outcome WriteProfile(const std::string& section, const std::string& key,
                       const std::optional<std::string>& value, const std::string& file) override;

 private:
  const SystemCalls& calls_;
};

class ShellWin : public Shell {
 public:
  explicit ShellWin(const ShellCalls& calls = RunningShellCalls()) : calls_(calls) {}
  ShellWin(const ShellWin&) = delete;
  ShellWin& operator=(const ShellWin&) = delete;
  ~ShellWin() override;

  Outcome Open(const std::string& path) override;
  Outcome ShowProperties(const std::string& path) override;
  Outcome Start(const std::string& program, const std::string& arguments) override;
  Outcome Launch(const std::string& command_line) override;
  Outcome Run(const std::string& command_line, std::uint32_t limit) override;
  Outcome CallExport(const std::string& library, const std::string& name) override;
  Outcome ShortcutTarget(const std::string& link, std::string* target) override;
  Outcome ShortcutArguments(const std::string& link, std::string* arguments) override;
  Outcome CreateShortcut(const std::string& link, const std::string& target,
                         const std::string& arguments) override;
  Outcome StartCommand(const std::string& command_line) override;
  Outcome ShowHelp(const std::string& file, const std::string& page) override;
  void Message(const std::string& text, const std::string& title) override;

 private:
  Outcome Execute(const std::string& file, const std::string& arguments);
  Outcome StartProcess(const std::string& command_line, WORD show, KernelHandle* process);
  Outcome ReadShortcut(const std::string& link, std::string* target, std::string* arguments);
  void StartCom();

  const ShellCalls& calls_;
  bool help_shown_ = false;
  bool com_tried_ = false;  // asked for when the first shortcut is read
  bool com_ready_ = false;
};

}  // namespace scourwell
