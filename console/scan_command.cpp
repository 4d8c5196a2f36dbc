// SPDX-License-Identifier: MIT
#include "console/scan_command.h"

#include <algorithm>

#include "console/selection.h"
#include "results/report_html.h"
#include "text/escaped.h"

namespace scourwell {
namespace {

constexpr std::size_t kMostUnread = 10'000;  // kept

ScanView::Format FormatOf(const std::string& name) {
  if (name == "csv") return ScanView::Format::Csv;
  return name == "json" ? ScanView::Format::Json : ScanView::Format::Text;
}

struct FlagRow {
  std::optional<bool> Options::*said;
  bool AppSettings::*setting;
};

constexpr FlagRow kFlags[] = {
    {&Options::spyware, &AppSettings::SpywareAdware},
    {&Options::dialers, &AppSettings::Dialers},
    {&Options::keyloggers, &AppSettings::KeyLoggers},
    {&Options::trojans, &AppSettings::Trojans},
    {&Options::hijackers, &AppSettings::BHO},
    {&Options::advanced, &AppSettings::AdvancedScanning},
    {&Options::all_cookies, &AppSettings::AllCookies},
    {&Options::at_restart, &AppSettings::DeleteAfterReboot},
    {&Options::registry_editor, &AppSettings::UseRegEdit},
};

struct SectionRow {
  std::optional<bool> Options::*said;
  std::size_t node;
};

constexpr SectionRow kSections[] = {
    {&Options::memory, ScanScope::kScanMemory},      {&Options::registry, ScanScope::kQuickScan},
    {&Options::deep_registry, ScanScope::kDeepScan}, {&Options::cookies, ScanScope::kScanCookie},
    {&Options::files, ScanScope::kScanDrives},
};

}  // namespace

void ApplySettings(const Options& options, AppSettings* settings) {
  for (const FlagRow& row : kFlags) {
    if (const auto said = options.*row.said) settings->*row.setting = *said;
  }
}

// Who names sections by a "--name" wants these and no others; who names none wants all but what a
// "--no-name" takes out.
void ApplySections(const Options& options, ScanScope* scope) {
  const bool some = std::ranges::any_of(
      kSections, [&](const SectionRow& row) { return (options.*row.said).value_or(false); });
  for (const SectionRow& row : kSections) {
    scope->SetTicked(row.node, (options.*row.said).value_or(!some));
  }
}

ScanCommand::ScanCommand(Host& host, const Options& options)
    : host_(host),
      options_(options),
      pump_(host.terminal()),
      view_(host.terminal(), FormatOf(options.format), !options.quiet) {}

void ScanCommand::HearFailure(const Outcome& outcome, std::string_view method) {
  // No file of definitions is no failure where none was asked for: the compiled-in rows serve.
  if (method == "checkUpdateIni" && outcome.code() == kFileNotFound) {
    if (options_.definitions.empty()) return;
  }
  const std::string_view place = outcome.last_value();
  std::vector<UnreadPlace>& places = removing_ ? summary_.failed : summary_.unread;
  if (places.size() >= kMostUnread) {
    ++(removing_ ? failed_not_kept_ : unread_not_kept_);
    return;
  }
  // Each pass meets the same folder.
  if (!heard_.insert(std::string(place) + "\n" + outcome.description()).second) return;
  places.push_back({place.empty() ? std::string(method) : target_->Shown(std::string(place)),
                    outcome.description()});
}

int ScanCommand::Refuse(ExitCode code, const std::string& why) {
  view_.Say(why);
  return code;
}

bool ScanCommand::Prepare(int* code) {
  std::string why;
  target_ = host_.Open(options_, pump_, *this, &why);
  if (!target_) {
    *code = Refuse(kIncomplete, why);
    return false;
  }
  if (removes()) {
    if (why = target_->WhyNoRemoval(); !why.empty()) {
      *code = Refuse(kIncomplete, "nothing can be removed: " + why);
      return false;
    }
    if (!options_.yes && !host_.terminal().AsksUser()) {
      *code = Refuse(kUsage, "nobody is there to be asked; --yes removes without a question");
      return false;
    }
  }
  Engine& engine = target_->engine();
  engine.log().set_listener(this);
  engine.memory().OnlyLook();  // what runs is ended when it is removed, and not before
  ApplySettings(options_, &engine.settings());
  engine.scope().FillTree(engine.language(), engine.ports().files.Drives());
  ApplySections(options_, &engine.scope());
  summary_.unread = target_->Unread();
  return true;
}

FindingRecord ScanCommand::Record(std::size_t row) {
  const HitList::Row& hit = target_->engine().hits().row(row);
  FindingRecord record = RecordOf(hit.finding, hit.result);
  if (!record.path.empty()) record.path = target_->Shown(record.path);
  return record;
}

void ScanCommand::ShowNewRows() {
  for (const std::size_t count = target_->engine().hits().size(); shown_ < count; ++shown_) {
    FindingRecord record = Record(shown_);
    ++summary_.counts[static_cast<std::size_t>(record.kind)];
    // What came of a row is not known yet.
    if (removes()) {
      records_.push_back(std::move(record));
    } else {
      view_.Show(record);
    }
  }
  if (!view_.written()) pump_.set_closing(true);
}

void ScanCommand::Scan() {
  Engine& engine = target_->engine();
  Clock& clock = engine.ports().clock;
  std::vector<std::string> paths;
  for (const std::string& word : options_.words) {
    const std::string path = target_->ScannedPath(word);
    if (path.empty()) {
      summary_.unread.push_back({word, DescribeError(kPathNotFound)});
    } else {
      paths.push_back(path);
    }
  }
  pump_.on_beat = [&] {
    ShowNewRows();
    view_.ShowProgress(engine.progress(), clock);
  };
  const std::uint32_t begin = clock.Ticks();
  if (options_.words.empty() || !paths.empty()) {
    summary_.finished = target_->Scan(engine.scope(), paths);
  }
  pump_.on_beat = nullptr;
  summary_.milliseconds = clock.Ticks() - begin;
  ShowNewRows();
  summary_.version = std::to_string(engine.version().major) + "." +
                     std::to_string(engine.version().minor) + "." +
                     std::to_string(engine.version().revision);
  summary_.definitions = engine.DefinitionsNumber();
}

bool ScanCommand::Ask(const std::string& question) {
  view_.HideProgress();
  host_.terminal().WriteError(question + " [y/N] ");
  const std::optional<std::string> answer = host_.terminal().ReadLine();
  return answer && !host_.terminal().Interrupted() && (*answer == "y" || *answer == "yes");
}

bool ScanCommand::MayRemove(std::size_t checked) {
  if (options_.yes) return true;
  const Engine& engine = target_->engine();
  for (std::size_t i = 0; i < records_.size(); ++i) {
    if (!engine.hits().row(i).checked) continue;
    view_.Say(std::string(KindName(records_[i].kind)) + " " + ForShowing(records_[i].spy) + " " +
              ForShowing(PlaceOf(records_[i])));
  }
  return Ask("Remove these " + std::to_string(checked) + "?");
}

// What the exit code of a removal is.
int ScanCommand::Remove() {
  Engine& engine = target_->engine();
  HitList& hits = engine.hits();
  const Selection selection(options_.only);
  for (std::size_t i = 0; i < hits.size(); ++i) hits.SetChecked(i, selection.Holds(records_[i]));
  const std::size_t checked = hits.checked_count();
  if (checked == 0) return hits.empty() ? kNothingFound : kFound;
  if (!MayRemove(checked)) return kFound;
  const std::string name =
      options_.backup_name.empty() ? target_->backups().NameForNow() : options_.backup_name;
  const RemovalNotes notes = target_->RemoveChecked(name);
  if (notes.backed_up) view_.Say("backup: " + ForShowing(name));
  for (const std::string& line : notes.lines) view_.Say(ForShowing(line));
  failed_ = failed_ || notes.failed;
  std::size_t gone = 0;
  for (std::size_t i = 0; i < hits.size(); ++i) {
    const auto& result = hits.row(i).result;
    if (!result) continue;
    records_[i].state = StateName(result->state);
    if (result->done()) ++gone;
    if (!result->why.ok()) view_.Say(PlaceOf(records_[i]) + ": " + result->why.description());
  }
  if (gone < checked) return kIncomplete;
  return gone == hits.size() ? kAllRemoved : kFound;
}

bool ScanCommand::WritePage(const ScanSummary& summary) {
  if (options_.report.empty()) return true;
  Engine& engine = target_->engine();
  Clock& clock = engine.ports().clock;
  Report report{engine.Title(), summary.definitions, clock.GeneralDate(clock.Now()),
                ReportRowsOf(engine.hits()), engine.NothingListed()};
  const std::string path = target_->OwnPath(options_.report);
  const Outcome written = path.empty()
                              ? Outcome::Failed(kPathNotFound)
                              : WriteReport(engine.ports().files, path, engine.language(), report);
  if (!written.ok()) view_.Say(options_.report + ": " + written.description());
  return written.ok();
}

int ScanCommand::Run() {
  int code = kNothingFound;
  if (!Prepare(&code)) return code;
  Scan();
  const bool stopped = pump_.closing();
  int removed = -1;
  removing_ = true;
  if (removes() && !stopped) removed = Remove();
  for (const FindingRecord& record : records_) view_.Show(record);
  if (unread_not_kept_ > 0) {
    summary_.unread.push_back({"", std::to_string(unread_not_kept_) + " more"});
  }
  if (failed_not_kept_ > 0) {
    summary_.failed.push_back({"", std::to_string(failed_not_kept_) + " more"});
  }
  if (!WritePage(summary_)) failed_ = true;
  return Finish(removed);
}

int ScanCommand::Finish(int removed) {
  target_->engine().log().set_listener(nullptr);
  view_.End(summary_);
  if (host_.terminal().Interrupted()) return kStopped;
  if (!view_.written() || failed_ || !summary_.finished || !summary_.unread.empty() ||
      !summary_.failed.empty()) {
    return kIncomplete;
  }
  if (removed >= 0) return removed;
  return target_->engine().hits().empty() ? kNothingFound : kFound;
}

}  // namespace scourwell
