// SPDX-License-Identifier: MIT
#include "shell/frm_options.h"

#include "shell/options_table.h"
#include "widgets/folder_dialog.h"
#include "widgets/message_box.h"
#include "widgets/resource.h"

namespace scourwell {

using namespace options_table;

HWND frmOptions::FirstFocus() const {
  const HWND page = pages_[static_cast<std::size_t>(std::max(0, tabs_.Selected()))].hwnd();
  return GetNextDlgTabItem(page, nullptr, FALSE);
}

LRESULT frmOptions::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_MEASUREITEM:
      PictureCombo::Measure(metrics(), reinterpret_cast<MEASUREITEMSTRUCT*>(lparam));
      return TRUE;
    case WM_DRAWITEM:
      CmbLang_.Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lparam));
      return TRUE;
    case WM_COMMAND:
      for (std::size_t i = 0; i < kPaths; ++i) {
        if (LOWORD(wparam) == kPathRows[i].text) PathNotified(i, HIWORD(wparam));
      }
      break;
    default:
      break;
  }
  return ModalWindow::OnMessage(message, wparam, lparam);
}

bool frmOptions::OnCommand(int id) {
  switch (id) {
    case IDC_CmdProceed:
      Proceed();
      return true;
    case IDC_cmdCancelOptions:
      Calls().Post(hwnd(), WM_CLOSE, 0, 0);
      return true;
    case IDC_chkScanStartup:
      ScanStartup();
      return true;
    case IDC_CmbLang:
      LanguageChosen();
      return true;
    case IDC_cmdEditLanguagePackFile:
      EditLanguage();
      return true;
    default:
      return Browse(id);
  }
}

bool frmOptions::OnKey(WPARAM key) {
  if (GetKeyState(VK_CONTROL) >= 0) return false;
  const bool back = GetKeyState(VK_SHIFT) < 0;
  if (key == VK_TAB) return SwitchTab(back ? -1 : 1), true;
  if (key == VK_NEXT) return SwitchTab(1), true;
  if (key == VK_PRIOR) return SwitchTab(-1), true;
  return false;
}

LRESULT frmOptions::OnNotify(NMHDR* header) {
  if (header->idFrom == IDC_OptionsTabs && header->code == TCN_SELCHANGE) {
    ShowTab(tabs_.Selected());
    // The keyboard must not stay on a page that is hidden now.
    if (!IsWindowVisible(GetFocus())) SetFocus(tabs_.hwnd());
  }
  return 0;
}

void frmOptions::SwitchTab(int step) {
  const int tab = (tabs_.Selected() + step + tabs_.count()) % tabs_.count();
  const bool inside = GetFocus() != tabs_.hwnd();
  tabs_.Select(tab);
  ShowTab(tab);
  if (!inside) return;
  const HWND first = FirstFocus();
  SetFocus(first);
  // As Tab does with a line to type in.
  if (Calls().Send(first, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) {
    Calls().Send(first, EM_SETSEL, 0, -1);
  }
}

void frmOptions::ShowTab(int tab) {
  for (int i = 0; i < kTabs; ++i) pages_[static_cast<std::size_t>(i)].Show(i == tab);
}

void frmOptions::ScanStartup() {
  const CheckBox& box = boxes_[BoxIndex(IDC_chkScanStartup)];
  if (form_.SetScanStartup(box.Checked()).ok()) return;
  box.Check(form_.controls().chkScanStartup);
  ShowMessage(Text(Caption::SettingNotWritten), Text(Caption::Error), MB_ICONERROR);
}

void frmOptions::LanguageChosen() {
  const int index = CmbLang_.Selected();
  if (index >= 0) {
    form_.controls().CmbLang = form_.languages()[static_cast<std::size_t>(index)].name;
  }
  cmdEditLanguagePackFile_.Enable(index >= 0);
}

void frmOptions::EditLanguage() {
  if (form_.EditLanguagePackFile().ok()) return;
  ShowMessage(
      Text(Caption::LanguagePackNotOpened) + "\r\n" + form_.controls().CmbLang + kPackExtension,
      Text(Caption::Error), MB_ICONERROR);
}

bool frmOptions::Browse(int id) {
  for (std::size_t i = 0; i < kPaths; ++i) {
    if (kPathRows[i].browse != id) continue;
    const std::string typed = paths_[i].text.Text();
    const std::string folder = AskForFolder(hwnd(), Text(Caption::SelectFolder),
                                            form_.IsMissing(typed) ? std::string() : typed);
    if (folder.empty()) return true;
    paths_[i].text.SetText(folder);
    CheckFolder(i);
    return true;
  }
  return false;
}

// The folder is not looked for while it is typed: a drive that is slow to answer would hold every
// letter up.
void frmOptions::PathNotified(std::size_t index, UINT code) {
  PathControls& path = paths_[index];
  if (code == EN_CHANGE) {
    path.changed = true;
    path.hint.Show(false);
  }
  if (code == EN_KILLFOCUS && path.changed) CheckFolder(index);
}

void frmOptions::CheckFolder(std::size_t index) {
  PathControls& path = paths_[index];
  path.hint.Show(form_.IsMissing(path.text.Text()));
  path.changed = false;
}

void frmOptions::ReadControls() {
  OptionControls& controls = form_.controls();
  for (std::size_t i = 0; i < kBoxes; ++i) controls.*kBoxRows[i].control = boxes_[i].Checked();
  for (std::size_t i = 0; i < kPaths; ++i) controls.*kPathRows[i].control = paths_[i].text.Text();
}

void frmOptions::Proceed() {
  if (!IsWindowEnabled(hwnd())) return;  // a message is being shown
  ReadControls();
  const OptionsForm::Confirmed confirmed = form_.Confirm();
  language_changed_ = confirmed.language;
  if (confirmed.advanced_scanning) {
    ShowMessage(Text(Caption::AdvancedScanningUnavailable), Text(Caption::ProgramName), 0);
  }
  if (confirmed.explorer_failed) {
    ShowMessage(Text(Caption::SettingNotWritten), Text(Caption::Error), MB_ICONERROR);
  }
  if (!confirmed.unkept.empty()) {
    std::string text = Text(Caption::PortableOtherDrive);
    for (const std::string& folder : confirmed.unkept) text += "\r\n" + folder;
    ShowMessage(text, Text(Caption::Information));
  }
  app_.SaveSettings();
  Close();
}

}  // namespace scourwell
