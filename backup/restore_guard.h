// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/file_streams.h"
#include "platform/outcome.h"

namespace scourwell {

// Decides where a restore may write.
class RestoreGuard {
 public:
  virtual ~RestoreGuard() = default;

  // Refuses a path that is protected or leads through a link. Otherwise adds a hold for every
  // folder on the way that exists; while they live, none of them can be swapped.
  virtual Outcome Allow(const std::string& path,
                        std::vector<std::unique_ptr<FolderHold>>* holds) = 0;
};

}  // namespace scourwell
