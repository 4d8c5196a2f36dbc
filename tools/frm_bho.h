// SPDX-License-Identifier: MIT
#pragma once

#include "tools/bho_manager.h"
#include "tools/frm_entries.h"

namespace scourwell {

// The browser-helper manager's window.
class frmBHO : public frmEntries {
 public:
  frmBHO(const WindowEnv& env, ToolBox& tools);

 private:
  EntryManager& manager() override { return manager_; }
  const EntryManager& manager() const override { return manager_; }
  std::span<const Caption> ColumnCaptions() const override { return BhoManager::ColumnCaptions(); }
  std::span<const Column> Columns() const override;
  std::span<const Command> Commands() const override;
  std::span<const Command> MenuCommands() const override;
  void EnableCommands() override;

  BhoManager manager_;
};

}  // namespace scourwell
