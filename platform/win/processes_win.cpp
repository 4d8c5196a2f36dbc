// SPDX-License-Identifier: MIT
#include "platform/win/processes_win.h"

#include "platform/win/nt/process_list_nt.h"
#include "platform/win/w9x/process_list_9x.h"

namespace scourwell {

Outcome ProcessesWin::ListByStatus(const Visit& visit) { return ListProcessesNt(visit); }

Outcome ProcessesWin::ListBySnapshot(const Visit& visit) { return ListProcesses9x(visit); }

std::vector<std::string> ProcessesWin::Modules(std::uint32_t process_id) {
  return ModulesNt(process_id);
}

}  // namespace scourwell
