#include "tools/frm_bho.h"

#include "widgets/busy_pointer.h"
#include "widgets/message_box.h"
#include "widgets/resource.h"

namespace scourwell {

frmBHO::frmBHO(const WindowEnv& env, ToolBox& tools)
    : frmTool(env, "frmBHO", "BHO ", tools, {1746, 17260, 17266}), manager_(tools.entry_needs()) {}

std::span<const frmTool::Column> frmBHO::Columns() const {
  static constexpr Column kColumns[] = {{130, false}, {60, false},  {150, false}, {190, true},
                                        {55, false},  {100, false}, {110, false}, {90, false}};
  return kColumns;
}

std::span<const frmTool::Command> frmBHO::Commands() const {
  static constexpr Command kCommands[] = {
      {IDC_cmdDisable, 17221}, {IDC_cmdApply, 17224}, {IDC_cmdViewInfo, 17267}};
  return kCommands;
}

std::string frmBHO::FileOf(std::size_t row) const {
  const FileFacts& facts = manager_.facts(row);
  return facts.exists ? facts.path : std::string();
}

std::string frmBHO::Figures() const {
  return std::to_string(manager_.size()) + " " + Text(17239) + ", " +
         std::to_string(manager_.disabled_count()) + " " + Text(17240);
}

void frmBHO::Reload() {
  {
    const BusyPointer busy;
    manager_.Form_Load();
  }
  ShowResult();
}

void frmBHO::ShowResult() {
  ShowRows();
  ShowFailures(manager_.failures());
}

void frmBHO::EnableCommands() {
  std::size_t row = 0;
  const bool any = Selected(&row);
  const bool enabled = any && manager_.status(row) == EntryStatus::Enabled;
  ButtonOf(IDC_cmdDisable).SetText(Text(enabled || !any ? 17221 : 17222));
  ButtonOf(IDC_cmdDisable).Enable(any);
  ButtonOf(IDC_cmdViewInfo).Enable(any);
  ButtonOf(IDC_cmdApply).Enable(manager_.IsChanged());
}

bool frmBHO::OnToolCommand(int id) {
  std::size_t row = 0;
  switch (id) {
    case IDC_cmdDisable:
      if (Selected(&row)) manager_.cmdDisable_Click(row);
      return ShowResult(), true;
    case IDC_cmdApply:
      return ApplyNow(), true;
    case IDC_cmdViewInfo:
      if (Selected(&row)) ShowMessage(manager_.Details(row), Title());
      return true;
    default:
      return false;
  }
}

void frmBHO::ApplyNow() {
  {
    const BusyPointer busy;
    manager_.ApplyNow();
  }
  ShowResult();
}

bool frmBHO::MayClose() {
  if (!manager_.IsChanged()) return true;
  const int answer =
      MessageBoxA(hwnd(), Text(17243).c_str(), Title().c_str(), MB_YESNOCANCEL | MB_ICONQUESTION);
  if (answer == IDYES) {
    ApplyNow();
    return manager_.failures().empty();
  }
  return answer == IDNO;
}

}  // namespace scourwell
