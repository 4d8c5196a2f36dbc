// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "machine/error_log.h"
#include "platform/files.h"
#include "platform/shell.h"

namespace scourwell {

// The programs that may stand beside this one.
enum class Companion {
  PopupBlocker,
  ResidentWatcher,
  NetworkRepair,
  HijackScanner,
  Firewall,
  Updater,
};
inline constexpr int kCompanionCount = 6;

// Finds and starts the companion programs. Each has one fixed name and stands in the application
// folder or in a subfolder of its own there.
class Companions {
 public:
  Companions(Files& files, Shell& shell, std::string application_folder)
      : files_(files), shell_(shell), application_folder_(std::move(application_folder)) {}

  // The full path of its program file; empty while there is none.
  std::string Find(Companion companion) const;
  // Where it is looked for first, for messages.
  std::string ExpectedPath(Companion companion) const;
  // Starts it in a normal window, without waiting for it. kFileNotFound when it is missing.
  Outcome Start(Companion companion) const;

 private:
  Files& files_;
  Shell& shell_;
  std::string application_folder_;
};

}  // namespace scourwell
