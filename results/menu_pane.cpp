// SPDX-License-Identifier: MIT

// The popup menu of the ResultsPane.
#include "results/explanation.h"
#include "results/results_pane.h"
#include "scan/finding_texts.h"
#include "text/paths.h"
#include "widgets/file_dialog.h"
#include "widgets/message_box.h"
#include "widgets/resource.h"

namespace scourwell {

void ResultsPane::ShowMenu(POINT at) {
  if (at.x == -1 && at.y == -1) {  // from the keyboard
    at = {metrics().Scale(40), metrics().Scale(40)};
    ClientToScreen(SpyListView_.hwnd(), &at);
  }
  const MenuHandle menu(CreatePopupMenu());
  const auto append = [&](bool enabled, int id, Caption caption) {
    Calls().Append(menu.get(), MF_STRING | (enabled ? MF_ENABLED : MF_GRAYED),
                   static_cast<UINT_PTR>(id), Text(caption));
  };
  const auto rule = [&] { Calls().Append(menu.get(), MF_SEPARATOR, 0, {}); };
  const bool any = !hits_.empty();
  const bool selected = !SelectedRows().empty();
  append(any, IDM_mnuCheckAll, Caption::MenuCheckAll);
  append(any, IDM_mnuUncheckAll, Caption::MenuUncheckAll);
  append(selected, IDM_mnuCheckSpy, Caption::MenuCheckSpy);
  append(selected, IDM_mnuUncheckSpy, Caption::MenuUncheckSpy);
  append(any, IDM_mnuGroupBySpy, Caption::MenuGroupBySpy);
  if (hits_.grouped()) CheckMenuItem(menu.get(), IDM_mnuGroupBySpy, MF_CHECKED);
  rule();
  append(selected, IDM_mnuExclude, Caption::MenuExcludeThis);
  append(selected, IDM_mnuCopyFinding, Caption::MenuCopyFinding);
  rule();
  append(!SelectedFolder().empty(), IDM_mnuOpenFolder, Caption::MenuOpenFolder);
  append(SelectedPath() != nullptr, IDM_mnuShowProperties, Caption::MenuShowProperties);
  append(selected, IDM_mnuWhatIsThis, Caption::MenuWhatIsThis);
  TrackPopupMenu(menu.get(), TPM_RIGHTBUTTON, at.x, at.y, 0, hwnd(), nullptr);
}

// What acts on the list of exclusions is the page's.
bool ResultsPane::OnMenuCommand(int id) {
  switch (id) {
    case IDM_mnuCheckSpy:
    case IDM_mnuUncheckSpy:
      CheckSpies(id == IDM_mnuCheckSpy);
      return true;
    case IDM_mnuGroupBySpy:
      Group(!hits_.grouped());
      return true;
    case IDM_mnuWhatIsThis:
      ShowWhatIsThis();
      return true;
    case IDM_mnuCopyFinding:
      env_.log.Trap("mnuCopy - Scan Spy", [&] { return mnuCopy(); });
      return true;
    case IDM_mnuOpenFolder:
      env_.log.Trap("mnuOpenFolder - Scan Spy", [&] {
        const std::string folder = SelectedFolder();
        return folder.empty() ? Outcome() : shell_.Open(folder);
      });
      return true;
    case IDM_mnuShowProperties:
      env_.log.Trap("mnuShowProperties - Scan Spy", [&] { return mnuShowProperties(); });
      return true;
    default:
      return false;
  }
}

void ResultsPane::ShowWhatIsThis() const {
  const std::vector<std::size_t> rows = SelectedRows();
  if (rows.empty()) return;
  ShowMessage(Explanation(env_.captions, hits_.row(rows.front()).finding, categories_),
              Text(Caption::Information));
}

std::vector<std::size_t> ResultsPane::SelectedRows() const {
  std::vector<std::size_t> rows;
  for (int row = -1; (row = SpyListView_.NextSelected(row)) >= 0;) {
    if (static_cast<std::size_t>(row) < hits_.size()) rows.push_back(static_cast<std::size_t>(row));
  }
  return rows;
}

void ResultsPane::CheckSpies(bool checked) {
  for (const std::size_t row : SelectedRows()) hits_.CheckSpy(hits_.row(row).finding.spy, checked);
  SpyListView_.Redraw();
  ShowCount();
}

// Only things that lie on a disk have a property sheet.
const std::string* ResultsPane::SelectedPath() const {
  const std::vector<std::size_t> rows = SelectedRows();
  return rows.empty() ? nullptr : PathOnDisk(hits_.row(rows.front()).finding.object);
}

// With a separator at its end it can only be a folder: without one, "C:\\Bar" may start a
// "Bar.exe".
std::string ResultsPane::SelectedFolder() const {
  const std::vector<std::size_t> rows = SelectedRows();
  if (rows.empty()) return {};
  const FoundObject& object = hits_.row(rows.front()).finding.object;
  const auto* process = std::get_if<FoundProcess>(&object);
  const std::string* path = process ? &process->image : PathOnDisk(object);
  if (!path || !IsAbsolutePath(*path)) return {};
  return AddPathToFileName(FolderPart(*path), "");
}

Outcome ResultsPane::mnuCopy() {
  std::string text;
  for (const std::size_t row : SelectedRows()) {
    if (!text.empty()) text += "\r\n";
    text += hits_.Line(row);
  }
  return CopyText(hwnd(), text) ? Outcome() : Outcome::Failed(kPermissionDenied);
}

Outcome ResultsPane::mnuShowProperties() {
  const std::string* path = SelectedPath();
  return path ? shell_.ShowProperties(*path) : Outcome();
}

}  // namespace scourwell
