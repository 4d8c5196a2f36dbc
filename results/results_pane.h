// SPDX-License-Identifier: MIT
#pragma once

#include "definitions/spy_categories.h"
#include "platform/shell.h"
#include "results/hit_list.h"
#include "widgets/button.h"
#include "widgets/check_list_view.h"
#include "widgets/header_pane.h"
#include "widgets/label.h"
#include "widgets/pane.h"

namespace scourwell {

// SpyFrame: what the scan has found. SpyListView is a virtual list that mirrors the HitList.
class ResultsPane : public Pane {
 public:
  ResultsPane(const WindowEnv& env, HitList& hits, const SpyCategories& categories, Shell& shell);

  // Shows the rows of the model anew.
  void Refresh();
  // A scan that was stopped early may have left no log.
  void EnableLog(bool enabled) { has_log_ = enabled; }
  // While rows are removed or backed up nothing can be pressed; `status` says what goes on.
  // Afterwards the rows say what came of them.
  void SetBusy(bool busy, const std::string& status = {});

  // Of what is listed, by index.
  std::vector<std::size_t> SelectedRows() const;

  HWND FirstFocus() const;
  HWND CloseButton() const { return cmdClose_.hwnd(); }
  HWND ContinueButton() const { return cmdContinue_.hwnd(); }

 private:
  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  void OnCreate() override;
  void OnSize(Area area) override;
  bool OnCommand(int id) override;
  LRESULT OnNotify(NMHDR* header) override;

  void CreateColumns();
  void FitColumns();
  void ShowStates();
  LRESULT Draw(NMLVCUSTOMDRAW& draw) const;
  void Check(const std::vector<std::size_t>& rows, bool checked);
  void CheckAll(bool checked);
  void Sort(int column);
  void Group(bool grouped);
  std::string SpyText(std::size_t row) const;
  void ShowMenu(POINT at);
  bool OnMenuCommand(int id);
  void CheckSpies(bool checked);
  std::string SelectedFolder() const;
  void ShowWhatIsThis() const;
  Outcome mnuCopy();
  Outcome mnuShowProperties();
  const std::string* SelectedPath() const;
  void ShowEmpty();
  void ShowCount();
  void EnableButtons();

  HitList& hits_;
  const SpyCategories& categories_;
  Shell& shell_;
  HeaderPane header_;
  Label lblEmpty_;
  CheckListView SpyListView_;
  Button cmdCheckAll_;
  Button cmdUnCheckAll_;
  Button cmdDelete_;
  Button cmdExclude_;
  Button cmdBackup_;
  Button cmdViewLog_;
  Button cmdReport_;
  Button cmdContinue_;
  Button cmdClose_;
  ImageListHandle images_;
  bool has_log_ = true;
  bool busy_ = false;
  bool shows_states_ = false;
  int needed_width_ = 0;  // by the names of the spies
  int system_width_ = 0;  // as last fitted
  int details_width_ = 0;
  int needed_state_width_ = 0;  // by what may have come of a row
  int state_width_ = 0;
};

}  // namespace scourwell
