// SPDX-License-Identifier: MIT
#pragma once

#include "tools/frm_entries.h"
#include "tools/startup_manager.h"

namespace scourwell {

// The startup manager's window.
class frmStartupManager : public frmEntries {
 public:
  frmStartupManager(const WindowEnv& env, ToolBox& tools);

 private:
  EntryManager& manager() override { return manager_; }
  const EntryManager& manager() const override { return manager_; }
  std::span<const Caption> ColumnCaptions() const override;
  std::span<const Column> Columns() const override;
  std::span<const int> ColumnOrder() const override;
  std::span<const Command> Commands() const override;
  std::span<const Command> MenuCommands() const override;
  HMENU Menu() override;
  void EnableCommands() override;
  bool OnToolCommand(int id) override;

  bool OnMenu(int id);
  void Edit();
  void AddTask();
  void SaveProfile();
  void LoadProfile();

  StartupManager manager_;
};

}  // namespace scourwell
