// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/outcome.h"

namespace scourwell {

struct ProcessEntry {
  std::string path;  // full image path; on Windows 95, 98 and Me what the snapshot names
  std::uint32_t id = 0;
  std::uint32_t priority_class = 0;  // the system's value; 0 where it is not known
};

class Processes {
 public:
  using Visit = std::function<bool(const ProcessEntry&)>;

  virtual ~Processes() = default;

  // The way of the NT family: every process that can be opened and whose first module has a
  // name. Others are passed over.
  virtual Outcome ListByStatus(const Visit& visit) = 0;
  // The way of Windows 95, 98 and Me: a snapshot of all processes.
  virtual Outcome ListBySnapshot(const Visit& visit) = 0;

  // Paths of the modules of one process, the image first; empty where the system does not tell.
  virtual std::vector<std::string> Modules(std::uint32_t process_id) = 0;
};

}  // namespace scourwell
