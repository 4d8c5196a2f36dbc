// SPDX-License-Identifier: MIT
#pragma once

#include "results/results_pane.h"
#include "scan/progress_pane.h"
#include "shell/application.h"
#include "shell/frm_host.h"
#include "widgets/page.h"

namespace scourwell {

// The scan page: starts its scan by itself, shows its progress, then its results.
class frmScanSpy : public Page {
 public:
  // What the page does when it comes up: a scan, or nothing but show what the last one found. After
  // a scan that another start of the program has asked for, nothing is removed unattended.
  enum class First { Scan, HandedScan, Results };

  // `paths`: folders or files to scan; none: what is ticked in the tree.
  frmScanSpy(const WindowEnv& env, Application& app, FormHost& host, First first,
             std::vector<std::string> paths);

  bool ShowsResults() const { return SpyFrame_.Shown(); }
  // The page of a scan that has ended. A list of results is opened anew instead.
  void LanguageChanged() { SpyStatusFrame_.LanguageChanged(); }

  HWND DefaultButton() const override;
  HWND EscapeButton() const override;
  HWND FirstFocus() const override;
  const char* HelpTopic() const override { return ShowsResults() ? "SpyFrame" : "frmScanSpy"; }

 private:
  void OnCreate() override;
  void OnSize(Area area) override;
  bool OnCommand(int id) override;
  void OnTimer(UINT_PTR id) override;

  void RunScan();
  bool AnyPathExists() const;
  void ShowProgress();
  void cmdAbort_Click();
  Outcome cmdNext_Click();
  void cmdCancel_Click();
  void ViewLog();
  void ShowResults();
  // Backs the checked rows up if the user wants that before removals, then removes them. False
  // when the user thought better of it.
  void BeginWork(Caption status);
  void EndWork();
  bool AskRemove() const;
  bool RemoveChecked(bool unattended);
  bool BackUpFirst(bool unattended, std::unordered_set<std::size_t>* kept);
  void cmdDelete_Click();
  void cmdContinue_Click();
  void cmdExclude_Click();
  // Asks first, and says how many.
  void Exclude(const std::vector<std::size_t>& rows);
  void cmdBackup_Click();
  bool AskForBackupName(std::string* name);
  std::string NotStored(const BackupReport& report, Caption caption) const;
  void ShowNotStored(const BackupReport& report);

  Application& app_;
  FormHost& host_;
  First first_;
  std::vector<std::string> paths_;
  ProgressPane SpyStatusFrame_;
  ResultsPane SpyFrame_;
  bool leave_ = false;  // for the start page, once the scan has returned
};

}  // namespace scourwell
