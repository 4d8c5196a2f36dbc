#pragma once

#include "platform/processes.h"

namespace scourwell {

class ProcessesWin : public Processes {
 public:
  Outcome ListByStatus(const Visit& visit) override;
  Outcome ListBySnapshot(const Visit& visit) override;
};

}  // namespace scourwell
