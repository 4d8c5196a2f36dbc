// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

#include "platform/processes.h"
#include "results/file_remover.h"
#include "results/hit_list.h"
#include "results/registry_remover.h"
#include "results/removal_plan.h"
#include "results/removal_result.h"
#include "text/captions.h"

namespace scourwell {

// The counters of the last removal. They rise after each attempt, whatever came of it, but not for
// what was not there any more; RemovalReport::objects tells what really happened.
struct RemovalCounters {
  std::int32_t total_found = 0;
  std::int32_t files = 0;
  std::int32_t folders = 0;
  std::int32_t registry = 0;  // keys and values
  std::int32_t cookies = 0;
  std::int32_t processes = 0;
};

struct RemovedObject {
  std::string spy;
  FoundObject object;
  RemovalResult result;
};

struct RemovalReport {
  std::vector<RemovedObject> objects;  // the checked rows, in their order
  bool failed = false;                 // something is still there
  std::int32_t repeated = 0;           // attempts on what an earlier removal had tried

  std::size_t Count(RemovalState state) const;
};

// Deletes the checked rows of the results list from the machine. The rows stay in the list, which
// says what came of each.
class Removal {
 public:
  struct Parts {
    FileRemover::Parts files;
    Processes& processes;
    Registry* registry64;  // null where there is only one view
    const Captions& captions;
    HitList& hits;
  };

  explicit Removal(const Parts& parts);

  // `kept`: rows (by index) that shall stay, with the reason in the report.
  void RemoveSelectedSpy(const std::unordered_set<std::size_t>& kept = {});
  // Runs the registry editor on the "Remove.reg" of the last removal, where the settings want it.
  void launchRegEditDelete();

  // What to tell the user when something is still there: the request to restart, then each object
  // and its reason. Empty when all went well.
  std::string Warning() const;

  const RemovalCounters& counters() const { return counters_; }
  const RemovalReport& report() const { return report_; }

 private:
  RemovedObject Carry(const RemovalStep& step);
  void WriteScript(const std::vector<RemovalStep>& steps);
  RemovalResult Remove(const FoundObject& object);
  RemovalResult EndProcess(const FoundProcess& process);

  Parts parts_;
  FileRemover files_;
  RegistryRemover keys_;
  RemovalCounters counters_;
  RemovalReport report_;
};

}  // namespace scourwell
