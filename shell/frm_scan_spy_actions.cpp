// What the scan page does with the rows of the results list.
#include <algorithm>

#include "results/frm_results.h"
#include "shell/frm_scan_spy.h"
#include "widgets/folder_dialog.h"
#include "widgets/input_box.h"
#include "widgets/message_box.h"
#include "widgets/resource.h"

namespace scourwell {
namespace {

constexpr std::size_t kMostNamed = 10;  // in a message

}  // namespace

void frmScanSpy::SetBusy(bool busy, int status) {
  busy ? app_.BeginWork(status) : app_.EndWork();
  if (SpyFrame_.hwnd()) SpyFrame_.SetBusy(busy, busy ? Text(status) : std::string());
  host_.PageChanged();
}

bool frmScanSpy::RemoveChecked(bool unattended) {
  std::unordered_set<std::size_t> kept;
  if (!BackUpFirst(unattended, &kept)) return false;
  SetBusy(true, 16217);
  app_.RemoveSelectedSpy(kept);
  app_.CountRemoved();
  SetBusy(false);
  // When the program is being closed, what was removed counts all the same; only the windows stay
  // away.
  const bool closing = app_.ports().pump.closing();
  const std::string warning = app_.removal().Warning();
  if (!warning.empty() && !app_.settings().AutoRemove && !closing) {
    ShowMessage(warning, Text(17001), MB_ICONERROR);
  }
  app_.removal().launchRegEditDelete();
  if (closing) return false;
  frmResults(env_, app_.removal()).ShowModal(Root());
  return true;
}

bool frmScanSpy::BackUpFirst(bool unattended, std::unordered_set<std::size_t>* kept) {
  if (!app_.settings().BackupBeforeRemoval || app_.hits().checked_count() == 0) return true;
  SetBusy(true, 16216);
  const BackupReport report = app_.BackUpChecked(app_.backups().NameForNow());
  SetBusy(false);
  if (app_.ports().pump.closing()) return false;
  BackupVerdict verdict = JudgeBackup(report, app_.hits().size(), unattended);
  *kept = std::move(verdict.kept);
  return !verdict.ask || AskYesNo(NotStored(report, 17143) + "\r\n\r\n" + Text(17142), Text(17001));
}

// Under the given caption, what is not in the archive, or why there is none.
std::string frmScanSpy::NotStored(const BackupReport& report, int caption) const {
  std::string text = Text(caption);
  if (!report.archive.ok()) text += "\r\n" + report.archive.description();
  for (std::size_t i = 0; i < std::min(report.failures.size(), kMostNamed); ++i) {
    text += "\r\n" + report.failures[i];
  }
  if (report.failures.size() > kMostNamed) text += "\r\n... " + Text(17144);
  return text;
}

void frmScanSpy::cmdDelete_Click() {
  if (app_.busy()) return;
  if (app_.hits().checked_count() > 0 && !AskOkCancel(Text(1824), Text(16008))) return;
  static_cast<void>(RemoveChecked(false));
}

void frmScanSpy::cmdContinue_Click() {
  if (app_.busy()) return;
  app_.log().Trap("cmdContinue", [&] {
    const bool any = app_.hits().checked_count() > 0;
    if (!AskOkCancel(Text(any ? 1824 : 1821), Text(16008))) return;
    if (!any || RemoveChecked(false)) host_.PostCommand(IDM_mnuHome);
  });
}

void frmScanSpy::cmdExclude_Click() {
  if (app_.busy()) return;
  if (app_.hits().checked_count() == 0) return ShowMessage(Text(1821), Text(17000));
  if (!AskYesNo(Text(1823), Text(16008))) return;
  const Outcome excluded =
      app_.log().TrapOutcome("cmdExclude", [&] { return app_.hits().ExcludeChecked(); });
  SpyFrame_.Refresh();
  if (!excluded.ok()) {
    ShowMessage(Text(17122) + "\r\n" + excluded.description(), Text(17001), MB_ICONERROR);
  }
}

bool frmScanSpy::AskForBackupName(std::string* name) {
  HWND frame = Root();
  for (;;) {
    if (!InputBox(env_, Text(17136), Text(17137), *name).Ask(frame, name) || name->empty()) {
      return false;
    }
    if (!app_.backups().IsUsableName(*name)) {
      ShowMessage(Text(17139) + "\r\n" + *name, Text(17001), MB_ICONERROR);
    } else if (app_.backups().Exists(*name)) {
      ShowMessage(Text(17138), Text(17000));
    } else {
      return true;
    }
  }
}

void frmScanSpy::cmdBackup_Click() {
  std::string name;
  if (app_.busy() || !AskForBackupName(&name)) return;
  // A full disk is no end: the rest may go elsewhere.
  ArchiveOptions options;
  options.next_volume = [this](const VolumeRequest& request) {
    return AskForFolder(Root(), Text(17159) + "\r\n" + request.file_name);
  };
  SetBusy(true, 16216);
  const BackupReport report = app_.BackUpChecked(name, std::move(options));
  SetBusy(false);
  if (app_.ports().pump.closing()) return;
  if (report.archive.ok() && report.failures.empty()) {
    return ShowMessage(Text(1847), Text(17000));
  }
  ShowNotStored(report);
}

void frmScanSpy::ShowNotStored(const BackupReport& report) {
  const int caption = report.archive.ok() ? 17141 : 17140;
  ShowMessage(NotStored(report, caption), Text(17001), MB_ICONERROR);
}

}  // namespace scourwell
