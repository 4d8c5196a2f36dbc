#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <unordered_set>
#include <vector>

#include "guard/key_remover.h"
#include "platform/processes.h"
#include "results/file_remover.h"
#include "results/hit_list.h"
#include "text/captions.h"

namespace scourwell {

// Of the last removal. They rise after each attempt, whatever came of it; RemovalReport::objects
// tells what really happened.
struct RemovalCounters {
  std::int32_t total_found = 0;
  std::int32_t files = 0;
  std::int32_t folders = 0;
  std::int32_t registry = 0;  // keys and values
  std::int32_t cookies = 0;
  std::int32_t processes = 0;
};

struct RemovedObject {
  std::string kind;
  std::string details;
  RemovalResult result;
};

struct RemovalReport {
  std::vector<RemovedObject> objects;  // the checked rows, in their order
  bool failed = false;                 // something is still there

  std::size_t Count(RemovalState state) const;
};

// "removed", "refused (It is protected: ...)" and so on.
std::string RemovalStateText(const Captions& captions, const RemovalResult& result);

// Deletes the checked rows of the results list from the machine. The rows stay in the list.
class Removal {
 public:
  struct Parts {
    FileRemover::Parts files;
    Processes& processes;
    Registry& registry;
    Registry* registry64;  // null where there is only one view
    const Captions& captions;
    const HitList& hits;
  };

  explicit Removal(const Parts& parts);

  // `kept`: rows (by index) that shall stay, with the reason in the report.
  void RemoveSelectedSpy(const std::unordered_set<std::size_t>& kept = {});
  // Runs the registry editor on the "Remove.reg" of the last removal, if that could be written;
  // does not wait for it.
  void launchRegEditDelete();

  // What to tell the user when something is still there: the request to restart, then each object
  // and its reason. Empty when all went well.
  std::string Warning() const;

  const RemovalCounters& counters() const { return counters_; }
  const RemovalReport& report() const { return report_; }

 private:
  bool RemoveRows(bool processes, const std::unordered_set<std::size_t>& kept,
                  std::map<std::size_t, RemovedObject>* done);
  void WriteScript(const std::vector<std::size_t>& rows);
  Outcome CreateRegistryDeleteFile(const std::vector<std::size_t>& rows);
  RemovalResult Remove(const Detection& row);
  RemovalResult RemoveRegistry(const Detection& row);
  KeyRemover& KeysOf(const Detection& row);
  bool MayStandInScript(const Detection& row);
  RemovalResult EndProcess(const Detection& row);
  void TellDenied();
  std::string ScriptPath() const;
  void CountAttempt(std::string_view kind);

  Parts parts_;
  KeyRemover keys_;
  KeyRemover keys64_;
  FileRemover remover_;
  RemovalCounters counters_;
  RemovalReport report_;
  bool script_written_ = false;
};

}  // namespace scourwell
