// SPDX-License-Identifier: MIT
#include "tools/frm_entries.h"

#include "machine/counting.h"
#include "text/unicode.h"
#include "widgets/message_box.h"
#include "widgets/pointers.h"
#include "widgets/resource.h"

namespace scourwell {
namespace {

constexpr std::size_t kMostNamed = 12;  // in a message
constexpr std::size_t kLongestName = 100;

}  // namespace

std::string frmEntries::FileOf(std::size_t row) const {
  const FileFacts& facts = manager().facts(row);
  return facts.exists ? facts.path : std::string();
}

std::vector<std::string> frmEntries::WordsOf(int column) const {
  return column == EntryManager::kStatusColumn ? manager().MarkTexts() : std::vector<std::string>();
}

std::string frmEntries::Figures() const {
  return CountedText(env_.captions, manager().size(), Caption::Entries) + ", " +
         CountedText(env_.captions, manager().disabled_count(), Caption::EntriesDisabled);
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
      return DisableSelected(), true;
    case IDC_cmdApply:
      return ApplyNow(), true;
    case IDC_cmdViewInfo:
      if (Selected(&row)) ShowMessage(manager().Details(row), Title());
      return true;
    default:
      return false;
  }
}

// All of them become what the first one becomes.
void frmEntries::DisableSelected() {
  std::size_t first = 0;
  if (!Selected(&first)) return;
  const bool disable = manager().status(first) == EntryStatus::Enabled;
  MarkSelected([&](std::size_t row) {
    const bool enabled = manager().status(row) == EntryStatus::Enabled;
    if (enabled == disable) manager().cmdDisable_Click(row);
  });
}

// What is not in a backup goes only when the user says so.
bool frmEntries::BackUpRemovals() {
  if (!tools_.back_up) return true;
  const std::vector<Finding> removed = manager().RemovedObjects();
  if (removed.empty()) return true;
  const std::vector<std::string> failures = tools_.back_up(removed);
  if (failures.empty()) return true;
  std::string text = Text(Caption::BackupBeforeRemovalIncomplete) + "\r\n";
  for (std::size_t i = 0; i < failures.size() && i < kMostNamed; ++i) text += "\r\n" + failures[i];
  if (failures.size() > kMostNamed) text += "\r\n...";
  text += "\r\n\r\n" + Text(Caption::AskRemoveWithoutBackup);
  return AskYesNo(text, Text(Caption::Error), kBeforeLoss);
}

bool frmEntries::AskAboutRemovals() {
  const std::vector<std::string> names = manager().Removals();
  if (names.empty()) return true;
  std::string text = Text(Caption::AskRemoveEntries) + "\r\n";
  for (std::size_t i = 0; i < names.size() && i < kMostNamed; ++i) {
    text += "\r\n" + std::string(WholeCharacters(names[i], kLongestName));
  }
  if (names.size() > kMostNamed) text += "\r\n...";
  return AskYesNo(text, Text(Caption::Confirmation), MB_ICONWARNING | MB_DEFBUTTON2);
}

bool frmEntries::ApplyNow() {
  if (!AskAboutRemovals() || !BackUpRemovals()) return false;
  {
    const BusyPointer busy;
    manager().ApplyNow();
  }
  ShowResult();
  return true;
}

bool frmEntries::MayClose() {
  if (!manager().HasMarks()) return true;
  const int answer = Calls().Ask(
      {hwnd(), Text(Caption::AskApplyMarks), Title(), MB_YESNOCANCEL | MB_ICONQUESTION});
  if (answer == IDYES) {
    return ApplyNow() && manager().failures().empty();
  }
  return answer == IDNO;
}

}  // namespace scourwell
