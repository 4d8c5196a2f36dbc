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

  const TableModel& Table() const override { return manager(); }
  std::string FileOf(std::size_t row) const override;
  std::string KeyOf(std::size_t row) const override { return manager().KeyOf(row); }
  bool IsMarked(std::size_t row) const override { return !manager().facts(row).spy.empty(); }
  std::string Figures() const override;
  void Reload() override;
  void EnableCommands() override;
  bool OnToolCommand(int id) override;
  bool MayClose() override;

 private:
  bool AskAboutRemovals();
  // False when the user keeps what he had marked for removal.
  bool ApplyNow();
};

}  // namespace scourwell
