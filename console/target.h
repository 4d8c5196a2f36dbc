// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "console/options.h"
#include "console/records.h"
#include "engine/engine.h"
#include "platform/terminal.h"

namespace scourwell {

// What there is to be said of a removal besides its rows.
struct RemovalNotes {
  bool backed_up = false;
  std::vector<std::string> lines;
  bool failed = false;  // apart from what the rows say
};

// What a command works on: this Windows, a Windows on a mounted disk, or plain folders.
class Target {
 public:
  virtual ~Target() = default;

  virtual Engine& engine() = 0;
  // Scans what is ticked, or the paths alone when there are some. True when it came to its end.
  virtual bool Scan(const ScanScope& scope, const std::vector<std::string>& paths) = 0;
  // A path of the user as a path of the engine's files: of what is scanned ...
  virtual std::string ScannedPath(const std::string& path) = 0;
  // ... and of our own files (definitions, reports, archives). Empty when it cannot be reached.
  virtual std::string OwnPath(const std::string& path) = 0;
  virtual std::string OwnFolder(const std::string& path) { return OwnPath(path); }
  // A path of the engine's files as the user knows it.
  virtual std::string Shown(const std::string& path) const { return path; }

  // Why nothing can be removed here; empty when it can.
  virtual std::string WhyNoRemoval() const { return {}; }
  // Stores the checked rows in a backup and removes them; what could not be stored stays. The rows
  // say what came of each.
  virtual RemovalNotes RemoveChecked(const std::string& backup_name);
  virtual Backups& backups() { return engine().backups(); }
  // Brings back what is chosen of a backup of backups().
  virtual Outcome Restore(RestoreRun& run, const std::vector<bool>& chosen, RestoreResult* result);
  // What could not be read before the scan began.
  virtual std::vector<UnreadPlace> Unread() const { return {}; }
};

// The machine that the program runs on, with all that differs between systems.
class Host {
 public:
  virtual ~Host() = default;
  virtual Terminal& terminal() = 0;
  virtual std::string Version() const = 0;
  // What is missing on the command line on this system; empty when nothing is.
  virtual std::string Missing(const Options&) const { return {}; }
  // What the options name. `why` says why there is none.
  virtual std::unique_ptr<Target> Open(const Options& options, Pump& pump, ScanReport& report,
                                       std::string* why) = 0;
};

// The whole program. Returns its exit code.
int RunConsole(const std::vector<std::string>& words, Host& host);

}  // namespace scourwell
