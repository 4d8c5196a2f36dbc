// SPDX-License-Identifier: MIT
#include "tools/frm_adware_uninstaller.h"

#include "text/text.h"
#include "widgets/layout.h"
#include "widgets/message_box.h"
#include "widgets/pointers.h"
#include "widgets/resource.h"

namespace scourwell {

frmAdwareUninstaller::frmAdwareUninstaller(const WindowEnv& env, ToolBox& tools)
    : frmTool(env, "frmAdwareUninstaller", "ar ", tools,
              {Caption::AdwareUninstallerTitle, Caption::AdwareUninstallerHint,
               Caption::NoInstalledProgram}),
      uninstaller_(tools.uninstaller_needs()) {}

std::span<const frmTool::Column> frmAdwareUninstaller::Columns() const {
  static constexpr Column kColumns[] = {{230, false}, {140, false}, {80, false}, {330, true}};
  return kColumns;
}

std::span<const frmTool::Command> frmAdwareUninstaller::Commands() const {
  static constexpr Command kCommands[] = {{IDC_cmdToolRemove, Caption::UninstallProgram},
                                          {IDC_cmdViewInfo, Caption::ShowDetails},
                                          {IDC_cmdShowAll, Caption::ShowAll},
                                          {IDC_cmdShowSpies, Caption::ShowAdwareOnly}};
  return kCommands;
}

std::span<const frmTool::Command> frmAdwareUninstaller::MenuCommands() const {
  return Commands().first(2);
}

void frmAdwareUninstaller::OnCreate() {
  frmTool::OnCreate();
  prgList_.Create(env_, hwnd(), IDC_prgTool);
  prgList_.SetName(Title());
  prgList_.Show(false);
}

// Over the figures, which come when the bar goes.
void frmAdwareUninstaller::OnSize(Area area) {
  frmTool::OnSize(area);
  RECT place = {};
  GetWindowRect(GetDlgItem(hwnd(), IDC_lblToolStatus), &place);
  MapWindowPoints(nullptr, hwnd(), reinterpret_cast<POINT*>(&place), 2);
  Layout layout;
  layout.Place(prgList_, Area(place));
}

void frmAdwareUninstaller::Load(bool all) {
  {
    const BusyPointer busy;
    prgList_.Show(true);
    const auto progress = [&](std::size_t done, std::size_t of) {
      prgList_.SetRange(static_cast<int>(of));
      prgList_.SetPosition(static_cast<int>(done));
    };
    if (all) {
      uninstaller_.LoadList(progress);
    } else {
      uninstaller_.LoadSpyList(progress);
    }
    prgList_.Show(false);
    ShowRows();
  }
  ShowFailures(uninstaller_.failures(), Caption::ProgramListNotRead);
  if (!all && uninstaller_.size() == 0 && uninstaller_.failures().empty()) {
    ShowMessage(Text(Caption::NoAdwareInstalled), Text(Caption::NoAdwareTitle));
  }
}

std::string frmAdwareUninstaller::EmptyText() const {
  if (uninstaller_.shows_all()) return frmTool::EmptyText();
  return ReplaceAll(Text(Caption::NoAdwareInstalled), "\r\n\r\n", "\r\n");
}

void frmAdwareUninstaller::EnableCommands() {
  std::size_t row = 0;
  const bool any = Selected(&row);
  ButtonOf(IDC_cmdToolRemove).Enable(any);
  ButtonOf(IDC_cmdViewInfo).Enable(any);
  // The view that is on has nothing to press.
  ButtonOf(IDC_cmdShowAll).Enable(!uninstaller_.shows_all());
  ButtonOf(IDC_cmdShowSpies).Enable(uninstaller_.shows_all());
}

bool frmAdwareUninstaller::OnToolCommand(int id) {
  std::size_t row = 0;
  const auto trapped = [&](const char* method, auto&& body) {
    env_.log.Trap(method, body);
    return true;
  };
  switch (id) {
    case IDC_cmdToolRemove:
      return trapped("ar cmdRemove_Click", [&] { cmdRemove_Click(); });
    case IDC_cmdViewInfo:
      return trapped("ar cmdViewInfo_Click", [&] {
        if (Selected(&row)) ShowMessage(uninstaller_.Info(row), Title());
      });
    case IDC_cmdShowAll:
      return trapped("ar cmdShowAll_Click", [&] { Load(true); });
    case IDC_cmdShowSpies:
      return trapped("ar cmdShowSpies_Click", [&] { Load(false); });
    default:
      return false;
  }
}

// The list stays as it is: nobody knows when the uninstaller is through.
void frmAdwareUninstaller::cmdRemove_Click() {
  std::size_t row = 0;
  if (!Selected(&row)) return;
  const std::string& program = uninstaller_.Cell(row, AdwareUninstaller::kProgram);
  if (!AskYesNo(Text(Caption::AskUninstall) + "\r\n\r\n" + program, Text(Caption::Confirmation),
                kBeforeLoss)) {
    return;
  }
  {
    const BusyPointer busy;
    uninstaller_.Uninstall(row);
  }
  ShowFailures(uninstaller_.failures(), Caption::UninstallerNotStarted);
}

}  // namespace scourwell
