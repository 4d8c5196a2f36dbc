// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/shell.h"
#include "text/captions.h"
#include "tools/adware_uninstaller.h"
#include "tools/entry_manager.h"

namespace scourwell {

// What the tools share, for as long as the program runs. Each opening of a tool makes its own
// model from it.
class ToolBox {
 public:
  ToolBox(const StartupLocations::Needs& machine, Versions& versions, ReferenceFile& reference,
          ErrorLog& log, const Captions& captions)
      : machine_(machine),
        reference_(reference),
        log_(log),
        captions_(captions),
        spies_(reference, log, machine.folders),
        facts_(machine.files, versions, machine.system, machine.folders, spies_),
        locations_(machine) {}

  EntryManager::Needs entry_needs() { return {locations_, spies_, facts_, log_, captions_}; }
  AdwareUninstaller::Needs uninstaller_needs() {
    return {machine_.registry, machine_.files, machine_.shell, machine_.system,
            machine_.folders,  reference_,     log_,           captions_};
  }
  // Who uses the program; see StartupLocations.
  void UseUser(std::string user) { locations_.UseUser(std::move(user)); }
  Shell& shell() { return machine_.shell; }
  // Backs up what is about to be removed, and tells what is in no backup; empty: nobody does.
  std::function<std::vector<std::string>(const std::vector<Finding>& objects)> back_up;

  // Opens the registry editor, at a key with its root if one is given.
  Outcome OpenRegistry(const std::string& key);
  // Opens a text file of the system in the editor for such.
  Outcome OpenText(const std::string& path);

 private:
  StartupLocations::Needs machine_;
  ReferenceFile& reference_;
  ErrorLog& log_;
  const Captions& captions_;
  KnownSpies spies_;
  FactFinder facts_;
  StartupLocations locations_;
};

}  // namespace scourwell
