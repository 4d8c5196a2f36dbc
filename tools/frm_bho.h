#pragma once

#include "tools/bho_manager.h"
#include "tools/frm_tool.h"

namespace scourwell {

// The browser-helper manager's window.
class frmBHO : public frmTool {
 public:
  frmBHO(const WindowEnv& env, ToolBox& tools);

 private:
  const TableModel& Table() const override { return manager_; }
  std::span<const int> ColumnCaptions() const override { return BhoManager::ColumnCaptions(); }
  std::span<const Column> Columns() const override;
  std::span<const Command> Commands() const override;
  std::string FileOf(std::size_t row) const override;
  std::string KeyOf(std::size_t row) const override { return manager_.KeyOf(row); }
  bool IsMarked(std::size_t row) const override { return !manager_.facts(row).spy.empty(); }
  std::string Figures() const override;
  void Reload() override;
  void EnableCommands() override;
  bool OnToolCommand(int id) override;
  bool MayClose() override;
  void ApplyNow();
  void ShowResult();

  BhoManager manager_;
};

}  // namespace scourwell
