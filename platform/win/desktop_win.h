#pragma once

#include "platform/clock.h"
#include "platform/profiles.h"
#include "platform/shell.h"

namespace scourwell {

class ClockWin : public Clock {
 public:
  LocalTime Now() override;
  std::uint32_t Ticks() override;
  LocalTime ToLocal(FileTime time) override;
  std::string ShortDate(const LocalTime& time) override;
  std::string TimeOfDay(const LocalTime& time) override;
};

class ProfilesWin : public Profiles {
 public:
  std::string ReadProfile(const std::string& section, const std::string& key,
                          const std::string& file) override;
  Outcome WriteProfile(const std::string& section, const std::string& key,
                       const std::optional<std::string>& value, const std::string& file) override;
};

class ShellWin : public Shell {
 public:
  ShellWin() = default;
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
  void StartCom();
  void CloseHelp();

  bool help_shown_ = false;
  bool com_tried_ = false;  // asked for when the first shortcut is read
  bool com_ready_ = false;
};

// Makes Fold do what the running system's upper-casing does.
void UseSystemFolding();

}  // namespace scourwell
