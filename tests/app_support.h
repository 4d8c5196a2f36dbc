// SPDX-License-Identifier: MIT
#pragma once

#include "shell/application.h"
#include "tests/support.h"

namespace scourwell::test {

// The fake machine, as the program sees it.
inline Ports PortsOf(FakeMachine& m) {
  return {m.files, m.registry, nullptr,     m.profiles, m.clock,     m.system,
          m.shell, m.versions, m.processes, m.pump,     m.code_pages};
}

}  // namespace scourwell::test
