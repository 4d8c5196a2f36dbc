// SPDX-License-Identifier: MIT
#pragma once

#include "platform/processes.h"

namespace scourwell {

class ProcessesWin : public Processes {
 public:
  Outcome ListByStatus(const Visit& visit) override;
  Outcome ListBySnapshot(const Visit& visit) override;
  std::vector<std::string> Modules(std::uint32_t process_id) override;
};

}  // namespace scourwell
