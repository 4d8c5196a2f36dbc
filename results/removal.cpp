#include "results/removal.h"

#include <algorithm>

#include "backup/registry_backup.h"
#include "guard/protected_keys.h"
#include "machine/file_utils.h"
#include "machine/reg_script.h"
#include "machine/registry_place.h"
#include "scan/memory_scan.h"
#include "text/captions.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr std::size_t kMostNamed = 12;  // objects in one message
constexpr char kMethod[] = "RemoveSelectedSpy";

struct KindCounter {
  std::string_view kind;
  std::int32_t RemovalCounters::*counter;
};
constexpr KindCounter kCounters[] = {
    {kSpyRegistryKey, &RemovalCounters::registry}, {kSpyRegistryValue, &RemovalCounters::registry},
    {kSpyFile, &RemovalCounters::files},           {kSpyCookie, &RemovalCounters::cookies},
    {kSpyFolder, &RemovalCounters::folders},       {kMemoryProcess, &RemovalCounters::processes},
};

struct StateText {
  RemovalState state;
  int caption;
};
constexpr StateText kStates[] = {
    {RemovalState::Removed, 17101},        {RemovalState::Gone, 17102},
    {RemovalState::PendingRestart, 17103}, {RemovalState::Refused, 17104},
    {RemovalState::Failed, 17105},
};

RemovalResult Failed(RemovalState state, Outcome why) { return {state, std::move(why)}; }

RemovalResult FromStatus(RegStatus status) {
  if (status == kRegOk) return {};
  if (status == kRegNotFound) return {RemovalState::Gone, {}};
  return Failed(RemovalState::Failed,
                status == kRegAccessDenied
                    ? Outcome::Failed(kPermissionDenied)
                    : Outcome::Failed(status, "Registry error " + std::to_string(status)));
}

bool InRegistry(const Detection& row) {
  return row.kind == kSpyRegistryKey || row.kind == kSpyRegistryValue;
}

bool IsProtected(const Detection& row) {
  return row.kind == kSpyRegistryValue ? IsProtectedValue(row.tool_tip, ValueName(row))
                                       : IsProtectedKey(row.tool_tip);
}

}  // namespace

std::string RemovalStateText(const Captions& captions, const RemovalResult& result) {
  std::string text;
  for (const StateText& each : kStates) {
    if (each.state == result.state) text = captions.Text(each.caption);
  }
  if (!result.why.ok() && result.state != RemovalState::PendingRestart) {
    text += " (" + result.why.description() + ")";
  }
  return text;
}

std::size_t RemovalReport::Count(RemovalState state) const {
  return static_cast<std::size_t>(
      std::count_if(objects.begin(), objects.end(),
                    [state](const RemovedObject& object) { return object.result.state == state; }));
}

Removal::Removal(const Parts& parts)
    : parts_(parts),
      keys_(parts.registry, parts.files.log, [this] { TellDenied(); }),
      keys64_(parts.registry64 ? *parts.registry64 : parts.registry, parts.files.log,
              [this] { TellDenied(); }),
      remover_(parts.files) {}

void Removal::TellDenied() {
  parts_.files.shell.Message(parts_.captions.Text(2005), parts_.captions.Text(2006));
}

void Removal::RemoveSelectedSpy(const std::unordered_set<std::size_t>& kept) {
  const HitList& hits = parts_.hits;
  counters_ = {};
  counters_.total_found = static_cast<std::int32_t>(hits.size());
  report_ = {};
  std::vector<std::size_t> rows;
  for (std::size_t i = 0; i < hits.size(); ++i) {
    if (hits.row(i).checked && !kept.count(i)) rows.push_back(i);
  }
  WriteScript(rows);
  std::map<std::size_t, RemovedObject> done;
  // What still runs could not be deleted, so the processes go first, however the list is sorted.
  if (!RemoveRows(true, kept, &done) || !RemoveRows(false, kept, &done)) {
    // Stopped: the editor leaves what was not reached, too.
    std::erase_if(rows, [&](std::size_t row) { return !done.count(row); });
    WriteScript(rows);
  }
  for (auto& [row, object] : done) {
    report_.failed = report_.failed || !object.result.done();
    report_.objects.push_back(std::move(object));
  }
}

// False when the removal was stopped.
bool Removal::RemoveRows(bool processes, const std::unordered_set<std::size_t>& kept,
                         std::map<std::size_t, RemovedObject>* done) {
  for (std::size_t i = 0; i < parts_.hits.size(); ++i) {
    const HitList::Row& row = parts_.hits.row(i);
    const Detection& found = row.detection;
    if (!row.checked || (found.kind == kMemoryProcess) != processes) continue;
    if (!parts_.files.pump.Next()) return false;
    RemovedObject object = {found.kind, found.details, {}};
    if (kept.count(i)) {
      object.result = Failed(RemovalState::Failed,
                             Outcome::Failed(kPathFileAccess, "It could not be backed up"));
    } else {
      object.result = Remove(found);
      CountAttempt(found.kind);
    }
    done->emplace(i, std::move(object));
  }
  return true;
}

void Removal::CountAttempt(std::string_view kind) {
  for (const KindCounter& each : kCounters) {
    if (each.kind == kind) ++(counters_.*each.counter);
  }
}

RemovalResult Removal::Remove(const Detection& row) {
  if (row.kind == kSpyFile || row.kind == kSpyCookie) return remover_.deleteSpyCFType(row.details);
  if (row.kind == kSpyFolder) return remover_.deleteSpyFolder(row.details);
  RemovalResult result = row.kind == kMemoryProcess ? EndProcess(row) : RemoveRegistry(row);
  if (!result.done()) {
    Outcome record = result.why;
    parts_.files.log.LogFailure(std::move(record).With("Component: ", row.details), kMethod);
  }
  return result;
}

RemovalResult Removal::RemoveRegistry(const Detection& row) {
  RegistryPlace place;
  if (!InRegistry(row) || !SplitRegistryPlace(row.tool_tip, &place)) {
    return Failed(RemovalState::Refused, Outcome::Failed(kBadFileName, "Unknown registry root"));
  }
  if (IsProtected(row)) {
    return Failed(RemovalState::Refused,
                  Outcome::Failed(kPermissionDenied, "It is protected: Windows needs it"));
  }
  KeyRemover& keys = KeysOf(row);
  if (row.kind == kSpyRegistryValue) {
    return FromStatus(keys.DeleteValue(place.root, place.path, std::string(ValueName(row))));
  }
  return FromStatus(keys.DeleteKey(place.root, place.path));
}

KeyRemover& Removal::KeysOf(const Detection& row) { return row.view64 ? keys64_ : keys_; }

RemovalResult Removal::EndProcess(const Detection& row) {
  const auto id = static_cast<std::uint32_t>(LeadingNumber(row.tag));
  bool running = false;
  const auto find = [&](const ProcessEntry& process) {
    running = process.id == id && EqualsNoCase(process.path, row.details);
    return !running;
  };
  const Outcome listed = parts_.files.os.IsWinNT() ? parts_.processes.ListByStatus(find)
                                                   : parts_.processes.ListBySnapshot(find);
  if (!running) {
    return listed.ok() ? RemovalResult{RemovalState::Gone, {}}
                       : Failed(RemovalState::Failed, listed);
  }
  if (IsGenuineSystemProcess(row.details, parts_.files.folders)) {
    return Failed(RemovalState::Refused,
                  Outcome::Failed(kPermissionDenied, "A process of Windows itself is not ended"));
  }
  Outcome ended = KillProcessById(id, parts_.files.system);
  return ended.ok() ? RemovalResult{} : Failed(RemovalState::Failed, std::move(ended));
}

std::string Removal::ScriptPath() const {
  return std::string(
      TrimBlanks(FullPath_With_Filename(parts_.files.folders.application, "Remove.reg")));
}

// Only what the registry functions themselves would delete: the editor knows no protection, and
// follows links.
bool Removal::MayStandInScript(const Detection& row) {
  RegistryPlace place;
  if (!SplitRegistryPlace(row.tool_tip, &place) || !CanStandInScript(row.tool_tip)) return false;
  if (IsProtected(row)) return false;
  if (row.kind == kSpyRegistryKey) return !KeysOf(row).HasLinks(place.root, place.path);
  return CanStandInScript(ValueName(row)) && !KeysOf(row).LeadsAside(place.root, place.path);
}

void Removal::WriteScript(const std::vector<std::size_t>& rows) {
  script_written_ = false;
  static_cast<void>(parts_.files.log.Trap("CreateRegistryDeleteFile",
                                          [&] { return CreateRegistryDeleteFile(rows); }));
}

// Only what the registry functions themselves would delete: the editor knows no protection,
// and sees the 32-bit view alone.
Outcome Removal::CreateRegistryDeleteFile(const std::vector<std::size_t>& rows) {
  // First of all the script of an earlier removal goes: nobody shall run that by mistake.
  Outcome erased = parts_.files.files.EraseFile(ScriptPath());
  if (!erased.ok() && erased.number() != kFileNotFound) {
    return std::move(erased).With("File: ", ScriptPath());
  }
  RegScript script(parts_.files.code_pages, ReaderOf(parts_.files.os));
  std::string left_out;
  for (const std::size_t i : rows) {
    const Detection& found = parts_.hits.row(i).detection;
    if (!InRegistry(found) || found.view64) continue;
    RegistryPlace place;
    bool written = MayStandInScript(found) && SplitRegistryPlace(found.tool_tip, &place);
    const std::string key = std::string(NameFromRoot(place.root)) + "\\" + place.path;
    if (written && found.kind == kSpyRegistryValue) {
      written = script.DeleteValue(key, ValueName(found));
    } else if (written) {
      written = script.DeleteKey(key);
    }
    if (!written) left_out = found.details;
  }
  Outcome written = parts_.files.files.Replace(ScriptPath(), script.Bytes());
  if (!written.ok()) return std::move(written).With("File: ", ScriptPath());
  script_written_ = true;
  if (left_out.empty()) return {};
  return Outcome::Failed(kBadFileName, "A registry entry does not go into the script")
      .With("Entry: ", left_out);
}

std::string Removal::Warning() const {
  if (!report_.failed) return {};
  std::string text = parts_.captions.Text(1849) + "\r\n" + parts_.captions.Text(1850) + "\r\n";
  std::size_t named = 0;
  for (const RemovedObject& object : report_.objects) {
    if (object.result.done()) continue;
    if (++named > kMostNamed) return text + "\r\n... " + parts_.captions.Text(17144);
    text += "\r\n" + object.details + " - " + RemovalStateText(parts_.captions, object.result);
  }
  return text;
}

void Removal::launchRegEditDelete() {
  if (!script_written_) return;
  static_cast<void>(parts_.files.log.Trap("launchRegEditDelete", [&]() -> Outcome {
    const SystemFolders& folders = parts_.files.folders;
    const std::string platform = parts_.files.os.Platform();
    std::string editor;
    if (parts_.files.os.IsWin9x()) {
      editor = folders.windows + "\\Regedit.exe";
    } else if (platform == "Windows 2000" || platform == "Windows NT" || platform == "Windows XP") {
      editor = folders.system + "\\RegEdt32.exe";
    }
    if (editor.empty()) return {};
    // Not every system has the second editor.
    const std::string other = folders.windows + "\\Regedit.exe";
    if (!FileExists(parts_.files.files, editor) && FileExists(parts_.files.files, other)) {
      editor = other;
    }
    const std::string script = ScriptPath();
    Outcome started = parts_.files.shell.Launch(editor + " /S \"" + script + "\"");
    if (started.ok()) return {};
    const std::string number = std::to_string(started.number());
    return std::move(started)
        .With("regeditFileName: ", script)
        .With("regeditFileLocation: ", editor)
        .With("Ret: ", number);
  }));
}

}  // namespace scourwell
