// SPDX-License-Identifier: MIT
#include "results/removal.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "machine/file_utils.h"
#include "scan/finding_texts.h"
#include "scan/memory_scan.h"
#include "text/caption_ids.h"
#include "text/captions.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr std::size_t kMostNamed = 12;  // objects in one message
constexpr char kMethod[] = "RemoveSelectedSpy";

// The counters by kind.
constexpr std::int32_t RemovalCounters::*kRemovalCounters[] = {
    &RemovalCounters::files,    &RemovalCounters::folders,  &RemovalCounters::cookies,
    &RemovalCounters::registry, &RemovalCounters::registry, &RemovalCounters::processes,
};
static_assert(std::size(kRemovalCounters) == std::variant_size_v<FoundObject>);

RemovalResult Failed(RemovalState state, Outcome why) { return {state, std::move(why)}; }

}  // namespace

std::size_t RemovalReport::Count(RemovalState state) const {
  return static_cast<std::size_t>(
      std::count_if(objects.begin(), objects.end(),
                    [state](const RemovedObject& object) { return object.result.state == state; }));
}

Removal::Removal(const Parts& parts)
    : parts_(parts),
      files_(parts.files),
      keys_({parts.files.files, parts.files.shell, parts.files.log, parts.files.code_pages,
             parts.files.os, parts.files.folders, parts.captions, parts.files.registry,
             parts.registry64}) {}

void Removal::RemoveSelectedSpy(const std::unordered_set<std::size_t>& kept) {
  counters_ = {};
  counters_.total_found = static_cast<std::int32_t>(parts_.hits.size());
  report_ = {};
  std::vector<RemovalStep> steps = PlanRemoval(parts_.hits, kept);
  WriteScript(steps);
  std::vector<std::pair<RemovalStep, RemovedObject>> done;
  for (const RemovalStep& step : steps) {
    if (!parts_.files.pump.Next()) break;
    done.emplace_back(step, Carry(step));
  }
  if (done.size() < steps.size()) {
    // Stopped: the editor leaves what was not reached, too.
    steps.resize(done.size());
    WriteScript(steps);
  }
  std::ranges::sort(done, {}, [](const auto& object) { return object.first.row; });
  for (auto& [step, object] : done) {
    report_.failed = report_.failed || !object.result.done();
    if (!step.kept) parts_.hits.Settle(step.row, object.result);
    report_.objects.push_back(std::move(object));
  }
}

RemovedObject Removal::Carry(const RemovalStep& step) {
  const HitList::Row& row = parts_.hits.row(step.row);
  const FoundObject& object = row.finding.object;
  if (step.kept) {
    return {
        row.finding.spy, object,
        Failed(RemovalState::Failed, Outcome::Failed(kPathFileAccess, "It could not be backed up")
                                         .Because(Caption::ReasonNotBackedUp))};
  }
  const auto* file = std::get_if<FoundFile>(&object);
  const bool beside = file && row.finding.certainty == Certainty::Beside;
  RemovedObject removed = {row.finding.spy, object,
                           beside ? files_.DeleteBeside(file->path) : Remove(object)};
  if (removed.result.state != RemovalState::Gone) {
    if (row.result) ++report_.repeated;
    ++(counters_.*kRemovalCounters[static_cast<std::size_t>(KindOf(object))]);
  }
  return removed;
}

// Files and folders leave a record of their own.
RemovalResult Removal::Remove(const FoundObject& object) {
  RemovalResult result =
      std::visit(Overloaded{
                     [&](const FoundFile& file) { return files_.deleteSpyCFType(file.path); },
                     [&](const FoundCookie& cookie) { return files_.deleteSpyCFType(cookie.path); },
                     [&](const FoundFolder& folder) { return files_.deleteSpyFolder(folder.path); },
                     [&](const FoundKey& key) { return keys_.Remove(key); },
                     [&](const FoundValue& value) { return keys_.Remove(value); },
                     [&](const FoundProcess& process) { return EndProcess(process); },
                 },
                 object);
  if (!result.done() && !PathOnDisk(object)) {
    Outcome record = result.why;
    parts_.files.log.LogFailure(std::move(record).With("Component: ", PlaceText(object)), kMethod);
  }
  return result;
}

RemovalResult Removal::EndProcess(const FoundProcess& process) {
  bool running = false;
  const auto find = [&](const ProcessEntry& each) {
    running = each.id == process.id && EqualsNoCase(each.path, process.image);
    return !running;
  };
  const Outcome listed = parts_.files.os.IsWinNT() ? parts_.processes.ListByStatus(find)
                                                   : parts_.processes.ListBySnapshot(find);
  if (!running) {
    return listed.ok() ? RemovalResult{RemovalState::Gone, {}}
                       : Failed(RemovalState::Failed, listed);
  }
  if (IsGenuineSystemProcess(process.image, parts_.files.folders)) {
    return Failed(RemovalState::Refused,
                  Outcome::Failed(kPermissionDenied, "A process of Windows itself is not ended")
                      .Because(Caption::ReasonProtected));
  }
  Outcome ended = KillProcessById(process.id, parts_.files.system, parts_.files.pump);
  return ended.ok() ? RemovalResult{} : Failed(RemovalState::Failed, std::move(ended));
}

void Removal::WriteScript(const std::vector<RemovalStep>& steps) {
  std::vector<std::size_t> rows;
  for (const RemovalStep& step : steps) {
    if (!step.kept) rows.push_back(step.row);
  }
  std::ranges::sort(rows);
  std::vector<const FoundObject*> objects;
  for (const std::size_t row : rows) objects.push_back(&parts_.hits.row(row).finding.object);
  keys_.WriteScript(objects);
}

void Removal::launchRegEditDelete() {
  if (parts_.files.settings.UseRegEdit) keys_.launchRegEditDelete();
}

std::string Removal::Warning() const {
  if (!report_.failed) return {};
  std::string text = parts_.captions.Text(Caption::SomeNotRemoved) + "\r\n" +
                     parts_.captions.Text(Caption::RestartAndScanAgain) + "\r\n";
  std::size_t named = 0;
  for (const RemovedObject& object : report_.objects) {
    if (object.result.done()) continue;
    if (++named > kMostNamed) return text + "\r\n... " + parts_.captions.Text(Caption::AndMore);
    text += "\r\n" + PlaceText(object.object) + " - " +
            RemovalStateText(parts_.captions, object.result);
  }
  return text;
}

}  // namespace scourwell
