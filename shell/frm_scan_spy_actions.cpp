// SPDX-License-Identifier: MIT

// What the scan page does with the rows of the results list.
#include <algorithm>

#include "machine/reasons.h"
#include "results/frm_results.h"
#include "shell/frm_report.h"
#include "shell/frm_scan_spy.h"
#include "widgets/folder_dialog.h"
#include "widgets/input_box.h"
#include "widgets/message_box.h"
#include "widgets/resource.h"

namespace scourwell {
namespace {

constexpr std::size_t kMostNamed = 10;  // in a message

}  // namespace

void frmScanSpy::BeginWork(Caption status) {
  app_.BeginWork(status);
  if (SpyFrame_.hwnd()) SpyFrame_.SetBusy(true, Text(status));
  host_.PageChanged();
}

void frmScanSpy::EndWork() {
  app_.EndWork();
  if (SpyFrame_.hwnd()) SpyFrame_.SetBusy(false, {});
  host_.PageChanged();
}

bool frmScanSpy::RemoveChecked(bool unattended) {
  std::unordered_set<std::size_t> kept;
  if (!BackUpFirst(unattended, &kept)) return false;
  BeginWork(Caption::DeletingInProgress);
  app_.RemoveSelectedSpy(kept);
  app_.CountRemoved();
  EndWork();
  // When the program is being closed, what was removed counts all the same; only the windows stay
  // away.
  const bool closing = app_.ports().pump.closing();
  const std::string warning = app_.removal().Warning();
  if (!warning.empty() && !app_.settings().AutoRemove && !closing) {
    ShowMessage(warning, Text(Caption::Error), MB_ICONERROR);
  }
  app_.removal().launchRegEditDelete();
  if (closing) return false;
  frmResults(env_, app_.removal(), [this] { SaveReport(env_, app_); }).ShowModal(Root());
  return true;
}

bool frmScanSpy::BackUpFirst(bool unattended, std::unordered_set<std::size_t>* kept) {
  if (!app_.settings().BackupBeforeRemoval || !app_.AnyToBackUp()) return true;
  if (app_.BackupsRefused()) {
    if (!unattended) ShowMessage(Text(Caption::PortableNoBackup), Text(Caption::PortableCopy));
    return false;
  }
  BeginWork(Caption::BackupInProgress);
  const BackupReport report = app_.BackUpChecked(app_.backups().NameForNow());
  EndWork();
  if (app_.ports().pump.closing()) return false;
  BackupVerdict verdict = JudgeBackup(report, app_.hits().size(), unattended);
  *kept = std::move(verdict.kept);
  return !verdict.ask || AskYesNo(NotStored(report, Caption::BackupBeforeRemovalIncomplete) +
                                      "\r\n\r\n" + Text(Caption::AskRemoveWithoutBackup),
                                  Text(Caption::Error), kBeforeLoss);
}

// Under the given caption, what is not in the archive, or why there is none.
std::string frmScanSpy::NotStored(const BackupReport& report, Caption caption) const {
  std::string text = Text(caption);
  const std::vector<std::string> failures = FailureTexts(env_.captions, report);
  for (std::size_t i = 0; i < std::min(failures.size(), kMostNamed); ++i) {
    text += "\r\n" + failures[i];
  }
  if (failures.size() > kMostNamed) text += "\r\n... " + Text(Caption::AndMore);
  return text;
}

// Without a backup there is no way back.
bool frmScanSpy::AskRemove() const {
  return AskOkCancel(Text(Caption::AskRemove), Text(Caption::Confirmation),
                     app_.settings().BackupBeforeRemoval ? MB_ICONQUESTION : kBeforeLoss);
}

void frmScanSpy::cmdDelete_Click() {
  if (app_.busy()) return;
  if (app_.hits().checked_count() > 0 && !AskRemove()) return;
  static_cast<void>(RemoveChecked(false));
}

void frmScanSpy::cmdContinue_Click() {
  if (app_.busy()) return;
  app_.log().Trap("cmdContinue", [&] {
    const bool any = app_.hits().checked_count() > 0;
    // Who has removed rows before has left the others alone on purpose.
    const bool leaves = !any && (app_.hits().settled() || AskOkCancel(Text(Caption::NothingChecked),
                                                                      Text(Caption::Confirmation)));
    if (any ? !AskRemove() : !leaves) return;
    if (!any || RemoveChecked(false)) host_.PostCommand(IDM_mnuHome);
  });
}

void frmScanSpy::cmdExclude_Click() {
  if (!app_.busy()) Exclude(app_.hits().CheckedRows());
}

void frmScanSpy::Exclude(const std::vector<std::size_t>& rows) {
  if (rows.empty()) return ShowMessage(Text(Caption::NothingChecked), Text(Caption::Information));
  const std::string question = Text(Caption::AskExclude) + "\r\n\r\n" +
                               Text(Caption::NumberOfComponents) + " " +
                               std::to_string(rows.size());
  if (!AskYesNo(question, Text(Caption::Confirmation), kBeforeLoss)) return;
  const Outcome excluded =
      app_.log().TrapOutcome("cmdExclude", [&] { return app_.hits().Exclude(rows); });
  SpyFrame_.Refresh();
  if (!excluded.ok()) {
    ShowMessage(Text(Caption::IgnoreListNotChanged) + "\r\n" + ReasonText(env_.captions, excluded),
                Text(Caption::Error), MB_ICONERROR);
  }
}

bool frmScanSpy::AskForBackupName(std::string* name) {
  HWND frame = Root();
  for (;;) {
    if (!InputBox(env_, Text(Caption::EnterBackupName), Text(Caption::LabelBackupName), *name)
             .Ask(frame, name) ||
        name->empty()) {
      return false;
    }
    if (!app_.backups().IsUsableName(*name)) {
      ShowMessage(Text(Caption::BackupNameUnusable) + "\r\n" + *name, Text(Caption::Error),
                  MB_ICONERROR);
    } else if (app_.backups().Exists(*name)) {
      ShowMessage(Text(Caption::BackupNameTaken), Text(Caption::Information));
    } else {
      return true;
    }
  }
}

void frmScanSpy::cmdBackup_Click() {
  std::string name = app_.backups().NameForNow();
  if (app_.busy() || !AskForBackupName(&name)) return;
  // A full disk is no end: the rest may go elsewhere.
  ArchiveOptions options;
  options.next_volume = [this](const VolumeRequest& request) {
    return AskForFolder(Root(), Text(Caption::BackupDiskFull) + "\r\n" + request.file_name);
  };
  BeginWork(Caption::BackupInProgress);
  const BackupReport report = app_.BackUpChecked(name, std::move(options));
  EndWork();
  if (app_.ports().pump.closing()) return;
  if (report.archive.ok() && report.failures.empty()) {
    return ShowMessage(Text(Caption::BackupCreated), Text(Caption::Information));
  }
  ShowNotStored(report);
}

void frmScanSpy::ShowNotStored(const BackupReport& report) {
  const Caption caption =
      report.archive.ok() ? Caption::ComponentsNotInBackup : Caption::BackupNotCreated;
  ShowMessage(NotStored(report, caption), Text(Caption::Error), MB_ICONERROR);
}

}  // namespace scourwell
