// SPDX-License-Identifier: MIT
#include "scan/memory_scan.h"

#include <algorithm>

#include "machine/file_utils.h"
#include "machine/real_path.h"
#include "text/text.h"

namespace scourwell {
namespace {

// Where the genuine image of a system process lies.
enum class Home { System, Windows };

struct SystemProcess {
  const char* name;
  Home home;
};

constexpr SystemProcess kSystemProcesses[] = {
    {"smss.exe", Home::System},     {"csrss.exe", Home::System},     {"wininit.exe", Home::System},
    {"winlogon.exe", Home::System}, {"services.exe", Home::System},  {"lsass.exe", Home::System},
    {"lsm.exe", Home::System},      {"svchost.exe", Home::System},   {"spoolsv.exe", Home::System},
    {"dwm.exe", Home::System},      {"conhost.exe", Home::System},   {"rundll32.exe", Home::System},
    {"ntvdm.exe", Home::System},    {"explorer.exe", Home::Windows}, {"kernel32.dll", Home::System},
    {"msgsrv32.exe", Home::System}, {"mprexe.exe", Home::System},
};

}  // namespace

const char* PriorityName(std::uint32_t priority_class) {
  switch (priority_class) {
    case 256:
      return "REALTIME";
    case 128:
      return "HIGH";
    case 32:
      return "NORMAL";
    case 64:
      return "IDLE";
    default:
      return "";
  }
}

bool IsGenuineSystemProcess(const std::string& path, const SystemFolders& folders) {
  for (const SystemProcess& process : kSystemProcesses) {
    const std::string& home = process.home == Home::System ? folders.system : folders.windows;
    const std::vector<std::string> places =
        PlacesOf(AddPathToFileName(home, process.name), folders);
    if (std::ranges::any_of(places, [&](const auto& place) { return EqualsNoCase(path, place); })) {
      return true;
    }
  }
  return false;
}

void MemoryScan::ListProcesses() {
  tasklist_.clear();
  compared_.clear();
  tried_.clear();
  const bool nt = parts_.os.IsWinNT();
  const auto visit = [&](const ProcessEntry& process) { return Keep(process); };
  parts_.log.Trap(nt ? "ShowRunningProcesses" : "ShowRunningProcesses9x", [&] {
    return nt ? parts_.processes.ListByStatus(visit) : parts_.processes.ListBySnapshot(visit);
  });
}

bool MemoryScan::Keep(const ProcessEntry& process) {
  if (!parts_.pump.Next()) return false;
  tasklist_.push_back(process);
  compared_.push_back(Compared(process.path));
  tried_.push_back(false);
  parts_.progress.lblScan = process.path;
  ++parts_.progress.scanned_processes;
  return true;
}

// A process that was started by its 8.3 name is the one of the long name all the same.
std::string MemoryScan::Compared(const std::string& path) const {
  const bool may_be_short =
      path.find('~') != path.npos && IsAbsolutePath(path) && IsOwnGround(path, parts_.folders);
  const std::string real = may_be_short ? RealPath(parts_.files, path) : path;
  return Upper(parts_.os.IsWinNT() ? FileNamePart(real) : std::string_view(real));
}

void MemoryScan::MatchAll(const DefinitionList<ProcessName>& definitions) {
  for (const ProcessName& definition : definitions) {
    if (!parts_.pump.Next()) return;
    const std::string folded = Upper(definition.name);
    const bool bare = !HoldsSeparator(folded);
    for (std::size_t i = 0; i < tasklist_.size() && !parts_.pump.closing(); ++i) {
      const std::string_view compared = compared_[i];
      if ((bare ? FileNamePart(compared) : compared) == folded) {
        CheckMType(i, {definition.spy, Certainty::Name, definition.source});
      }
    }
  }
}

void MemoryScan::CheckMType(std::size_t index, const Evidence& evidence) {
  const ProcessEntry& process = tasklist_[index];
  const FoundProcess found = {process.path, process.id};
  parts_.log.Trap("CheckMType", [&] { ReportOnce(parts_.sink, found, evidence); });
  if (only_looks_ || !parts_.os.IsWin2K()) return;
  if (tried_[index] || !parts_.sink.Shows(found)) return;
  tried_[index] = true;
  parts_.log.Trap("KillProcessById", [&] { return End(process); });
}

Outcome MemoryScan::End(const ProcessEntry& process) {
  if (IsGenuineSystemProcess(process.path, parts_.folders)) {
    return Outcome::Failed(kPermissionDenied, "A process of Windows itself is not ended")
        .With("Process: ", process.path);
  }
  // It may have gone since it was listed, and its identifier may be another's.
  bool running = false;
  Outcome listed = parts_.processes.ListByStatus([&](const ProcessEntry& other) {
    running = other.id == process.id && EqualsNoCase(other.path, process.path);
    return !running;
  });
  if (!running) return listed.ok() ? Outcome() : std::move(listed).With("Process: ", process.path);
  Outcome ended = KillProcessById(process.id, parts_.system, parts_.pump);
  return ended.ok() ? Outcome() : std::move(ended).With("Process: ", process.path);
}

}  // namespace scourwell
