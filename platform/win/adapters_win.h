// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win/code_pages_win.h"
#include "platform/win/desktop_win.h"
#include "platform/win/files_win.h"
#include "platform/win/processes_win.h"
#include "platform/win/registry_win.h"
#include "platform/win/system_win.h"
#include "platform/win/versions_win.h"

namespace scourwell {

// The ports of the Windows that runs, but for the pump and for what talks to the user: those are
// of each program's own kind.
struct AdaptersWin {
  FilesWin files;
  RegistryWin registry;
  RegistryWin registry64{RegistryWin::kView64};
  ProfilesWin profiles;
  ClockWin clock;
  SystemWin system;
  VersionsWin versions;
  ProcessesWin processes;
  CodePagesWin code_pages;

  Registry* SecondView() { return RegistryWin::HasTwoViews() ? &registry64 : nullptr; }
};

}  // namespace scourwell
