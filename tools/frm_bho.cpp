// SPDX-License-Identifier: MIT
#include "tools/frm_bho.h"

#include "widgets/resource.h"

namespace scourwell {

frmBHO::frmBHO(const WindowEnv& env, ToolBox& tools)
    : frmEntries(
          env, "frmBHO", "BHO ", tools,
          {Caption::BrowserHelperManager, Caption::BrowserHelperHint, Caption::NoBrowserHelper}),
      manager_(tools.entry_needs()) {}

std::span<const frmTool::Column> frmBHO::Columns() const {
  static constexpr Column kColumns[] = {{130, false}, {100, false}, {150, false}, {190, true},
                                        {55, false},  {100, false}, {110, false}, {90, false}};
  return kColumns;
}

std::span<const frmTool::Command> frmBHO::Commands() const {
  static constexpr Command kCommands[] = {{IDC_cmdDisable, Caption::DisableEntry},
                                          {IDC_cmdApply, Caption::ApplyMarks},
                                          {IDC_cmdViewInfo, Caption::ShowDetails}};
  return kCommands;
}

void frmBHO::EnableCommands() {
  frmEntries::EnableCommands();
  std::size_t row = 0;
  ButtonOf(IDC_cmdViewInfo).Enable(Selected(&row));
}

std::span<const frmTool::Command> frmBHO::MenuCommands() const {
  static constexpr Command kCommands[] = {{IDC_cmdDisable, Caption::DisableEntry},
                                          {IDC_cmdViewInfo, Caption::ShowDetails}};
  return kCommands;
}

}  // namespace scourwell
