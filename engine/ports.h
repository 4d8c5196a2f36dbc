// SPDX-License-Identifier: MIT
#pragma once

#include "platform/clock.h"
#include "platform/code_pages.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/profiles.h"
#include "platform/pump.h"
#include "platform/registry.h"
#include "platform/shell.h"
#include "platform/system.h"
#include "platform/versions.h"

namespace scourwell {

// The machine, as a program sees it.
struct Ports {
  Files& files;
  Registry& registry;
  Registry* registry64;  // the 64-bit view; null where there is only one
  Profiles& profiles;
  Clock& clock;
  System& system;
  Shell& shell;
  Versions& versions;
  Processes& processes;
  Pump& pump;
  CodePages& code_pages;
};

}  // namespace scourwell
