#pragma once

#include "tools/frm_tool.h"
#include "tools/startup_manager.h"

namespace scourwell {

// The startup manager's window.
class frmStartupManager : public frmTool {
 public:
  frmStartupManager(const WindowEnv& env, ToolBox& tools);

 private:
  const TableModel& Table() const override { return manager_; }
  std::span<const int> ColumnCaptions() const override;
  std::span<const Column> Columns() const override;
  std::span<const int> ColumnOrder() const override;
  std::span<const Command> Commands() const override;
  HMENU Menu() override;
  std::string FileOf(std::size_t row) const override;
  std::string KeyOf(std::size_t row) const override { return manager_.KeyOf(row); }
  bool IsMarked(std::size_t row) const override { return !manager_.facts(row).spy.empty(); }
  std::string Figures() const override;
  void Reload() override;
  void EnableCommands() override;
  bool OnToolCommand(int id) override;
  bool MayClose() override;

  bool OnMenu(int id);
  void ApplyNow();
  void Edit();
  void AddTask();
  void SaveProfile();
  void LoadProfile();
  // Shows the rows, then what went wrong.
  void ShowResult();

  StartupManager manager_;
};

}  // namespace scourwell
