// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "guard/key_remover.h"
#include "machine/op_sys_info.h"

namespace scourwell {

// The entry in Explorer's menu of folders and drives that scans them, for this user alone.
class ExplorerVerb {
 public:
  ExplorerVerb(Registry& registry, KeyRemover& keys, const COpSysInfo& os,
               std::string application_folder)
      : registry_(registry),
        keys_(keys),
        os_(os),
        application_folder_(std::move(application_folder)) {}

  // Before Windows 2000, Explorer does not look for classes below the user's own key.
  bool Available() const { return os_.IsWin2K(); }
  // True when it is there on folders or on drives.
  bool IsOn() const;
  // Writes the entry again when it is there: as it would be written today.
  Outcome TurnOn(const std::string& caption);
  // Takes our keys away and nothing beside them.
  Outcome TurnOff();

 private:
  Registry& registry_;
  KeyRemover& keys_;
  const COpSysInfo& os_;
  std::string application_folder_;
};

}  // namespace scourwell
