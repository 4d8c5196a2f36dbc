// SPDX-License-Identifier: MIT
#pragma once

#include "tools/adware_uninstaller.h"
#include "tools/frm_tool.h"
#include "widgets/progress_bar.h"

namespace scourwell {

// The adware uninstaller's window.
class frmAdwareUninstaller : public frmTool {
 public:
  frmAdwareUninstaller(const WindowEnv& env, ToolBox& tools);

 private:
  const TableModel& Table() const override { return uninstaller_; }
  std::span<const Caption> ColumnCaptions() const override {
    return AdwareUninstaller::ColumnCaptions();
  }
  std::span<const Column> Columns() const override;
  std::span<const Command> Commands() const override;
  std::span<const Command> MenuCommands() const override;
  void OnCreate() override;
  void OnSize(Area area) override;
  std::string FileOf(std::size_t row) const override { return uninstaller_.FileOf(row); }
  std::string KeyOf(std::size_t row) const override { return uninstaller_.KeyOf(row); }
  bool IsMarked(std::size_t row) const override { return uninstaller_.IsAdware(row); }
  std::string Figures() const override { return uninstaller_.StatusText(); }
  void Reload() override { Load(uninstaller_.shows_all()); }
  std::string EmptyText() const override;
  void EnableCommands() override;
  bool OnToolCommand(int id) override;

  void Load(bool all);
  void cmdRemove_Click();

  AdwareUninstaller uninstaller_;
  ProgressBar prgList_;
};

}  // namespace scourwell
