// SPDX-License-Identifier: MIT

// What keys and the popup menu do with the selected row.
#include <algorithm>
#include <iterator>

#include "text/paths.h"
#include "tools/frm_tool.h"
#include "widgets/file_dialog.h"
#include "widgets/resource.h"

namespace scourwell {

bool frmTool::OnKey(WPARAM key) {
  const bool control = GetKeyState(VK_CONTROL) < 0;
  if (key == VK_F5) return OnRowCommand(IDM_mnuRefresh);
  if (key == 'F' && control) return SetFocus(txtFilter_.hwnd()), true;
  if (GetFocus() != list_.hwnd()) return false;
  if ((key == 'C' || key == VK_INSERT) && control) return OnRowCommand(IDM_mnuCopyRow);
  if (key == VK_DELETE) return OnToolCommand(IDC_cmdToolRemove);
  if (key == VK_RETURN) return OnToolCommand(IDC_cmdViewInfo);
  if (key == VK_SPACE) return OnToolCommand(IDC_cmdDisable);
  return false;
}

bool frmTool::OnRowCommand(int id) {
  if (id == IDM_mnuRefresh) return Reload(), true;
  constexpr int kOfRow[] = {IDM_mnuCopyRow, IDM_mnuFileProperties, IDM_mnuOpenLocation,
                            IDM_mnuOpenKey};
  if (std::ranges::find(kOfRow, id) == std::end(kOfRow)) return false;
  std::size_t row = 0;
  if (!Selected(&row)) return true;
  const std::string name = std::string(prefix_) + "Menu_Click";
  env_.log.Trap(name.c_str(), [&]() -> Outcome {
    if (id == IDM_mnuFileProperties) return tools_.shell().ShowProperties(FileOf(row));
    if (id == IDM_mnuOpenLocation) return OpenLocation(row);
    if (id == IDM_mnuOpenKey) return tools_.OpenRegistry(KeyOf(row));
    std::string lines;
    for (const std::size_t each : SelectedRows()) {
      if (!lines.empty()) lines += "\r\n";
      lines += view_->Line(static_cast<std::size_t>(view_->Find(each)));
    }
    return CopyText(hwnd(), lines) ? Outcome() : Outcome::Failed(kPermissionDenied);
  });
  return true;
}

// The folder alone: with a separator at its end it can be nothing else.
Outcome frmTool::OpenLocation(std::size_t row) {
  const std::string folder(FolderPart(FileOf(row)));
  return folder.empty() ? Outcome() : tools_.shell().Open(AddPathToFileName(folder, ""));
}

// As its button, or its entry in the menu bar, has it at the moment.
void frmTool::AppendCommands(HMENU menu, bool any) {
  for (const Command& command : MenuCommands()) {
    const auto id = static_cast<UINT>(command.id);
    const HWND button = GetDlgItem(hwnd(), command.id);
    const UINT entry = GetMenuState(GetMenu(hwnd()), id, MF_BYCOMMAND);
    const bool grayed = button ? !IsWindowEnabled(button) : entry != ~0u && (entry & MF_GRAYED);
    const std::string text = button ? Calls().Text(button) : Text(command.caption);
    Calls().Append(menu, MF_STRING | (any && !grayed ? MF_ENABLED : MF_GRAYED), id, text);
  }
  SetMenuDefaultItem(menu, IDC_cmdViewInfo, FALSE);
  Calls().Append(menu, MF_SEPARATOR, 0, {});
}

void frmTool::ShowMenu(POINT at) {
  if (at.x == -1 && at.y == -1) {  // from the keyboard
    at = {metrics().Scale(40), metrics().Scale(40)};
    ClientToScreen(list_.hwnd(), &at);
  }
  std::size_t row = 0;
  const bool any = Selected(&row);
  const MenuHandle menu(CreatePopupMenu());
  const auto append = [&](bool yes, UINT_PTR id, const std::string& text) {
    Calls().Append(menu.get(), MF_STRING | (yes ? MF_ENABLED : MF_GRAYED), id, text);
  };
  AppendCommands(menu.get(), any);
  append(any, IDM_mnuCopyRow, Text(Caption::MenuCopyRow) + "\tCtrl+C");
  append(any && !FileOf(row).empty(), IDM_mnuFileProperties, Text(Caption::MenuFileProperties));
  append(any && !FileOf(row).empty(), IDM_mnuOpenLocation, Text(Caption::MenuOpenLocation));
  append(any && !KeyOf(row).empty(), IDM_mnuOpenKey, Text(Caption::MenuOpenRegistryKey));
  Calls().Append(menu.get(), MF_SEPARATOR, 0, {});
  append(true, IDM_mnuRefresh, Text(Caption::MenuRefresh) + "\tF5");
  TrackPopupMenu(menu.get(), TPM_RIGHTBUTTON, at.x, at.y, 0, hwnd(), nullptr);
}

}  // namespace scourwell
