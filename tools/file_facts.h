// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "machine/system_folders.h"
#include "platform/files.h"
#include "platform/versions.h"
#include "tools/known_spies.h"
#include "tools/program_of.h"

namespace scourwell {

// What can be told at a glance, without waiting for other machines, of the file behind an entry.
struct FileFacts {
  std::string path;  // as far as it is known
  bool exists = false;
  bool remote = false;  // on another machine: nobody knows whether it exists
  std::string company;  // from its version information; may be empty
  std::string spy;      // empty: no definition names it
};

class FactFinder {
 public:
  FactFinder(Files& files, Versions& versions, System& system, const SystemFolders& folders,
             const KnownSpies& spies)
      : files_(files), versions_(versions), system_(system), folders_(folders), spies_(spies) {}

  // The facts of what a command line starts.
  FileFacts OfCommand(std::string_view command) const;
  // Those of a file that is loaded, not started: its path takes no arguments and needs no quotes.
  FileFacts OfFile(const std::string& path) const;

 private:
  Files& files_;
  Versions& versions_;
  System& system_;
  const SystemFolders& folders_;
  const KnownSpies& spies_;
};

}  // namespace scourwell
