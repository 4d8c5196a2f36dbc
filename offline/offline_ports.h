// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "offline/shortcut_file.h"
#include "platform/code_pages.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/shell.h"

namespace scourwell {

// Of a machine that does not run nothing runs.
class OfflineProcesses : public Processes {
 public:
  Outcome ListByStatus(const Visit&) override { return {}; }
  Outcome ListBySnapshot(const Visit&) override { return {}; }
  std::vector<std::string> Modules(std::uint32_t) override { return {}; }
};

// Shortcuts are read; whatever would start something of the other machine fails.
class OfflineShell : public Shell {
 public:
  OfflineShell(Files& files, CodePages& code_pages) : files_(files), code_pages_(code_pages) {}

  Outcome Open(const std::string&) override { return Refuse(); }
  Outcome ShowProperties(const std::string&) override { return Refuse(); }
  Outcome Start(const std::string&, const std::string&) override { return Refuse(); }
  Outcome Launch(const std::string&) override { return Refuse(); }
  Outcome Run(const std::string&, std::uint32_t) override { return Refuse(); }
  // Its code would run here: what a class names is not registered by running it.
  Outcome CallExport(const std::string&, const std::string&) override {
    return Outcome::Failed(kFileNotFound);
  }
  Outcome ShortcutTarget(const std::string& link, std::string* target) override;
  Outcome ShortcutArguments(const std::string& link, std::string* arguments) override;
  Outcome CreateShortcut(const std::string&, const std::string&, const std::string&) override {
    return Refuse();
  }
  Outcome StartCommand(const std::string&) override { return Refuse(); }
  Outcome ShowHelp(const std::string&, const std::string&) override { return Refuse(); }
  void Message(const std::string&, const std::string&) override {}

 private:
  static Outcome Refuse();
  Outcome ReadLink(const std::string& link, std::string ShortcutFile::*part, std::string* text);

  Files& files_;
  CodePages& code_pages_;
};

}  // namespace scourwell
