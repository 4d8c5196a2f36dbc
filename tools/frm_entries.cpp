// SPDX-License-Identifier: MIT
#include "tools/frm_entries.h"

#include "widgets/pointers.h"
#include "widgets/resource.h"

namespace scourwell {

std::string frmEntries::FileOf(std::size_t row) const {
  const FileFacts& facts = manager().facts(row);
  return facts.exists ? facts.path : std::string();
}

std::string frmEntries::Figures() const {
  return std::to_string(manager().size()) + " " + Text(Caption::Entries) + ", " +
         std::to_string(manager().disabled_count()) + " " + Text(Caption::EntriesDisabled);
}

void frmEntries::Reload() {
  {
    const BusyPointer busy;
    manager().Refresh();
  }
  ShowResult();
}

void frmEntries::ShowResult() {
  ShowRows();
  ShowFailures(manager().failures());
}

void frmEntries::EnableCommands() {
  std::size_t row = 0;
  const bool any = Selected(&row);
  const bool enabled = any && manager().status(row) == EntryStatus::Enabled;
  ButtonOf(IDC_cmdDisable)
      .SetText(Text(enabled || !any ? Caption::DisableEntry : Caption::EnableEntry));
  ButtonOf(IDC_cmdDisable).Enable(any);
  ButtonOf(IDC_cmdApply).Enable(manager().IsChanged());
}

bool frmEntries::OnToolCommand(int id) {
  std::size_t row = 0;
  switch (id) {
    case IDC_cmdDisable:
      if (Selected(&row)) manager().cmdDisable_Click(row);
      return ShowResult(), true;
    case IDC_cmdApply:
      return ApplyNow(), true;
    default:
      return false;
  }
}

void frmEntries::ApplyNow() {
  {
    const BusyPointer busy;
    manager().ApplyNow();
  }
  ShowResult();
}

bool frmEntries::MayClose() {
  if (!manager().HasMarks()) return true;
  const int answer = Calls().Ask(
      {hwnd(), Text(Caption::AskApplyMarks), Title(), MB_YESNOCANCEL | MB_ICONQUESTION});
  if (answer == IDYES) {
    ApplyNow();
    return manager().failures().empty();
  }
  return answer == IDNO;
}

}  // namespace scourwell
