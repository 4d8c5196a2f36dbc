#pragma once

#include "platform/clock.h"
#include "platform/profiles.h"
#include "platform/shell.h"
#include "platform/versions.h"

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
  Outcome Open(const std::string& path) override;
  Outcome ShowProperties(const std::string& path) override;
  Outcome Start(const std::string& program, const std::string& arguments) override;
  Outcome CallExport(const std::string& library, const std::string& name) override;
  void Message(const std::string& text, const std::string& title) override;
};

class VersionsWin : public Versions {
 public:
  Outcome ReadFixed(const std::string& path, FixedFileInfo* info) override;
};

// Makes Fold do what the running system's upper-casing does.
void UseSystemFolding();

}  // namespace scourwell
