// SPDX-License-Identifier: MIT
#include "console/commands.h"

#include <algorithm>

#include "console/option_table.h"
#include "scan/finding_texts.h"
#include "text/escaped.h"
#include "text/paths.h"
#include "text/text.h"
#include "tools/startup_manager.h"

namespace scourwell {
namespace {

constexpr std::string_view kBackupEnding = ".qzp";

std::string_view StateWord(ItemState state) {
  switch (state) {
    case ItemState::Missing:
      return "missing";
    case ItemState::Same:
      return "same";
    default:
      return "different";
  }
}

std::string_view StatusWord(EntryStatus status) {
  return status == EntryStatus::Disabled ? "disabled" : "enabled";
}

}  // namespace

KeptCommands::KeptCommands(Host& host, const Options& options)
    : host_(host), options_(options), pump_(host.terminal()) {}

int KeptCommands::Run() {
  std::string why;
  target_ = host_.Open(options_, pump_, *this, &why);
  if (!target_) return Fail(why);
  struct Row {
    CommandBit bit;
    int (KeptCommands::*run)();
  };
  constexpr Row kRows[] = {{kBackups, &KeptCommands::Backups},
                           {kRestore, &KeptCommands::Restore},
                           {kIgnore, &KeptCommands::Ignore},
                           {kStartup, &KeptCommands::Startup},
                           {kDefinitions, &KeptCommands::Definitions}};
  for (const Row& row : kRows) {
    if (options_.command->bit != row.bit) continue;
    const int code = (this->*row.run)();
    if (host_.terminal().Interrupted()) return kStopped;
    return written_ ? code : kIncomplete;
  }
  return kUsage;
}

int KeptCommands::Fail(const std::string& text) {
  host_.terminal().WriteError("scourwell: " + text + "\n");
  return kIncomplete;
}

int KeptCommands::Fail(const std::string& text, const Outcome& why) {
  return Fail(ForShowing(text) + ": " + why.description());
}

void KeptCommands::Line(const std::vector<std::string>& columns) {
  std::string line;
  for (const std::string& column : columns) {
    if (!line.empty()) line += '\t';
    line += ForShowing(column);
  }
  written_ = written_ && host_.terminal().Write(line + "\n");
}

bool KeptCommands::Ask(const std::string& question) {
  if (options_.yes) return true;
  Terminal& terminal = host_.terminal();
  if (!terminal.AsksUser()) {
    Fail("nobody is there to be asked; --yes goes on without a question");
    return false;
  }
  terminal.WriteError(question + " [y/N] ");
  const auto answer = terminal.ReadLine();
  return answer && (*answer == "y" || *answer == "yes");
}

std::string KeptCommands::BackupFile(const std::string& name) const {
  return EndsWithNoCase(name, kBackupEnding) ? name : name + std::string(kBackupEnding);
}

int KeptCommands::Backups() {
  if (options_.words.empty()) return ListBackups();
  int code = kNothingFound;
  for (const std::string& name : options_.words) {
    code = std::max(code, options_.erase ? DeleteBackup(name) : ShowBackup(name));
  }
  return code;
}

int KeptCommands::ListBackups() {
  Clock& clock = engine().ports().clock;
  for (const BackupRow& row : target_->backups().List()) {
    Line({row.key, std::to_string(row.size), clock.GeneralDate(clock.ToLocal(row.modified))});
  }
  return kNothingFound;
}

int KeptCommands::ShowBackup(const std::string& name) {
  std::unique_ptr<RestoreRun> run;
  const Outcome opened = target_->backups().Open(BackupFile(name), {}, &run);
  if (!opened.ok()) return Fail(name, opened);
  for (const BackupItem& item : run->items()) {
    Line({std::string(KindName(KindOf(item.object))), item.spy, PlaceText(item.object),
          item.refused.ok() ? std::string(StateWord(item.state)) : item.refused.description()});
  }
  return kNothingFound;
}

int KeptCommands::DeleteBackup(const std::string& name) {
  if (!Ask("Delete the backup " + ForShowing(name) + "?")) return kIncomplete;
  const Outcome deleted = target_->backups().Delete(BackupFile(name));
  return deleted.ok() ? kNothingFound : Fail(name, deleted);
}

int KeptCommands::Restore() {
  if (options_.words.size() != 1) return Fail("restore wants one backup"), kUsage;
  if (const std::string why = target_->WhyNoRemoval(); !why.empty()) {
    return Fail("nothing can be restored: " + why);
  }
  std::unique_ptr<RestoreRun> run;
  const std::string& name = options_.words[0];
  const Outcome opened = target_->backups().Open(BackupFile(name), {}, &run);
  if (!opened.ok()) return Fail(name, opened);
  if (run->foreign()) Fail("this backup was not made on this machine; it may bring less back");
  const std::size_t count = run->items().size();
  if (!Ask("Bring back " + std::to_string(count) + " items?")) return kIncomplete;
  return RestoreItems(*run);
}

int KeptCommands::RestoreItems(RestoreRun& run) {
  RestoreResult result;
  const Outcome restored = target_->Restore(run, run.AllButDoubtful(), &result);
  for (const ItemReport& failed : result.failed) Fail(failed.path, failed.why);
  if (!result.notes.empty()) {
    const ItemReport& first = result.notes.front();
    Fail(std::to_string(result.notes.size()) +
             " are back, but not with all of their attributes, times and access rights, as " +
             first.path,
         first.why);
  }
  for (const KeptFile& kept : result.kept) Line({"kept", kept.path, kept.kept_as});
  Line({"restored", std::to_string(result.restored), "failed",
        std::to_string(result.failed.size())});
  if (!restored.ok()) return Fail("restore", restored);
  return result.failed.empty() ? kNothingFound : kIncomplete;
}

int KeptCommands::Ignore() {
  if (options_.add || options_.take_out) return ChangeIgnoreList();
  std::vector<IgnoreRecord> records;
  const Outcome loaded = engine().ignore().Load(&records);
  // Without the folder of our own files there is no list yet.
  if (loaded.code() == kPathNotFound) return kNothingFound;
  if (!loaded.ok()) return Fail("the list cannot be read", loaded);
  for (const IgnoreRecord& record : records) {
    const auto kind = KindOfWord(record.kind);
    Line({kind ? std::string(KindName(*kind)) : record.kind, record.system, record.details});
  }
  return kNothingFound;
}

int KeptCommands::ChangeIgnoreList() {
  const auto kind =
      options_.words.size() == 3 ? FindKindName(options_.words[0]) : std::optional<FindingKind>();
  if (!kind) return Fail("ignore wants KIND SPY PLACE, as a scan shows them"), kUsage;
  const IgnoreRecord record{std::string(KindWord(*kind)), options_.words[2], options_.words[1]};
  if (!CanBeIgnored(record)) return Fail("the list cannot hold this"), kUsage;
  std::vector<IgnoreRecord> records;
  if (const Outcome loaded = engine().ignore().Load(&records); !loaded.ok()) {
    return Fail("the list cannot be read", loaded);
  }
  const auto same = [&](const IgnoreRecord& other) {
    return other.kind == record.kind && other.details == record.details;
  };
  const bool there = std::ranges::any_of(records, same);
  if (options_.add && there) return kNothingFound;
  if (options_.take_out && !there) return Fail("the list does not hold this");
  std::erase_if(records, same);
  const Outcome changed =
      options_.add ? engine().ignore().Append({record}) : engine().ignore().Keep(records);
  return changed.ok() ? kNothingFound : Fail("the list was not changed", changed);
}

int KeptCommands::Startup() {
  StartupManager manager(engine().tools().entry_needs());
  manager.Form_Load();
  if (options_.disable || options_.enable) return ChangeStartup(manager);
  for (std::size_t row = 0; row < manager.size(); ++row) {
    Line({std::string(StatusWord(manager.status(row))), manager.Cell(row, StartupManager::kName),
          manager.Cell(row, StartupManager::kLocation),
          manager.Cell(row, StartupManager::kCommand)});
  }
  for (const std::string& failure : manager.failures()) Fail(failure);
  return manager.failures().empty() ? kNothingFound : kIncomplete;
}

int KeptCommands::ChangeStartup(StartupManager& manager) {
  const EntryStatus wanted = options_.disable ? EntryStatus::Disabled : EntryStatus::Enabled;
  for (const std::string& name : options_.words) {
    bool known = false;
    for (std::size_t row = 0; row < manager.size(); ++row) {
      if (!EqualsNoCase(manager.Cell(row, StartupManager::kName), name)) continue;
      known = true;
      if (manager.status(row) != wanted) manager.cmdDisable_Click(row);
    }
    if (!known) return Fail("no startup entry is called " + ForShowing(name));
  }
  if (manager.ApplyNow()) return kNothingFound;
  for (const std::string& failure : manager.failures()) Fail(failure);
  return kIncomplete;
}

int KeptCommands::Definitions() {
  const std::string number = engine().DefinitionsNumber();
  ReferenceFile& reference = engine().reference();
  Line({"number", number});
  Line(
      {"file", reference.readable() ? target_->Shown(reference.path()) : "none: compiled in only"});
  return kNothingFound;
}

}  // namespace scourwell
