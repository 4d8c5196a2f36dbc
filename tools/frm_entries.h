// SPDX-License-Identifier: MIT
#pragma once

#include "tools/entry_manager.h"
#include "tools/frm_tool.h"

namespace scourwell {

// What the windows of the startup manager and the browser-helper manager have in common: entries
// are marked first, and the marks applied or thrown away.
class frmEntries : public frmTool {
 protected:
  using frmTool::frmTool;

  virtual EntryManager& manager() = 0;
  virtual const EntryManager& manager() const = 0;

  // Shows the rows, then what went wrong.
  void ShowResult();
  // Carries out `mark` on every selected row; they stay selected.
  template <class Mark>
  void MarkSelected(Mark&& mark) {
    const std::vector<std::size_t> rows = SelectedRows();
    for (const std::size_t row : rows) mark(row);
    ShowResult();
    SelectRows(rows);
  }

  const TableModel& Table() const override { return manager(); }
  std::vector<std::string> WordsOf(int column) const override;
  std::string FileOf(std::size_t row) const override;
  std::string KeyOf(std::size_t row) const override { return manager().KeyOf(row); }
  bool IsMarked(std::size_t row) const override { return !manager().facts(row).spy.empty(); }
  std::string Figures() const override;
  void Reload() override;
  void EnableCommands() override;
  bool OnToolCommand(int id) override;
  bool MaySelectSeveral() const override { return true; }
  bool MayClose() override;

 private:
  void DisableSelected();
  bool AskAboutRemovals();
  bool BackUpRemovals();
  // False when the user keeps what he had marked for removal.
  bool ApplyNow();
};

}  // namespace scourwell
