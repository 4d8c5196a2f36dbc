// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "definitions/definition_list.h"
#include "machine/error_log.h"
#include "machine/op_sys_info.h"
#include "machine/system_folders.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/pump.h"
#include "scan/finding.h"
#include "scan/scan_progress.h"

namespace scourwell {

// "REALTIME", "HIGH", "NORMAL", "IDLE", or empty for any other priority class.
const char* PriorityName(std::uint32_t priority_class);

// True for a process that Windows itself cannot live without: one of its names, with the image in
// the folder where the genuine one lies.
bool IsGenuineSystemProcess(const std::string& path, const SystemFolders& folders);

// The running processes and their comparison with the memory definitions.
class MemoryScan {
 public:
  struct Parts {
    Processes& processes;
    System& system;
    Pump& pump;
    ErrorLog& log;
    const COpSysInfo& os;
    const SystemFolders& folders;
    FindingSink& sink;
    ScanProgress& progress;
    Files& files;
  };

  explicit MemoryScan(const Parts& parts) : parts_(parts) {}

  // Fills the list of processes in the way of the running family.
  void ListProcesses();
  // Compares each definition, in the order of the list, with every listed process: on the NT family
  // by file name, elsewhere by the whole text, or by the file name where the definition is a bare
  // one; without case, and by long names. A hit is reported and, on Windows XP
  // and 2000, ended at once unless the user excludes it.
  void MatchAll(const DefinitionList<ProcessName>& definitions);

  // A scan that only looks ends nothing.
  void OnlyLook() { only_looks_ = true; }

  const std::vector<ProcessEntry>& Tasklist() const { return tasklist_; }

 private:
  bool Keep(const ProcessEntry& process);
  std::string Compared(const std::string& path) const;
  // A process whose compared text equals the signature.
  void CheckMType(std::size_t index, const Evidence& evidence);
  Outcome End(const ProcessEntry& process);

  Parts parts_;
  bool only_looks_ = false;
  std::vector<ProcessEntry> tasklist_;
  std::vector<std::string> compared_;  // the path of each process, or its file name; folded
  std::vector<bool> tried_;            // to end; its identifier may be another's by now
};

}  // namespace scourwell
