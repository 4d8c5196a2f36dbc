// SPDX-License-Identifier: MIT
#include "results/frm_log.h"

#include "machine/file_utils.h"
#include "text/escaped.h"
#include "widgets/access_keys.h"
#include "widgets/file_dialog.h"
#include "widgets/layout.h"
#include "widgets/message_box.h"
#include "widgets/resource.h"

namespace scourwell {

frmLog::frmLog(const WindowEnv& env, Files& files, CodePages& code_pages, std::string path)
    : ModalWindow(env, "frmLog"), files_(files), code_pages_(code_pages), path_(std::move(path)) {}

SIZE frmLog::FirstSize() const { return {metrics().Scale(600), metrics().Scale(400)}; }

void frmLog::OnCreate() {
  txtFile_.Create(env_, hwnd(), IDC_txtFile);
  lblFind_.CreateWithKey(env_, hwnd(), IDC_lblFind, Text(Caption::LabelFind));
  txtFind_.Create(env_, hwnd(), IDC_txtFind);
  AccessKeys keys({Text(Caption::LabelFind)});
  cmdFind_.Create(env_, hwnd(), IDC_cmdFind, keys.Add(Text(Caption::FindNext)));
  cmdSave_.Create(env_, hwnd(), IDC_cmdSave, keys.Add(Text(Caption::SaveLog)));
  cmdCancel_.Create(env_, hwnd(), IDCANCEL, Text(Caption::CloseLog));
  const Outcome loaded = env_.log.TrapOutcome("frmLog_Load", [&]() -> Outcome {
    Outcome read = files_.Read(path_, kLargest, &bytes_);
    Show();
    return read.ok() ? Outcome() : std::move(read).With("LogFile: ", path_);
  });
  cmdSave_.Enable(loaded.ok());
  if (!loaded.ok()) {
    ShowMessage(path_ + "\r\n" + loaded.description(), Text(Caption::Error), MB_ICONERROR);
  }
}

// A text box ends at the first NUL, and must not let one line pretend to be another.
void frmLog::Show() {
  const std::string shown = LinesForShowing(code_pages_.FromFile(bytes_));
  txtFile_.SetFont(metrics().fixed(shown));
  txtFile_.SetText(shown);
}

void frmLog::OnSize(Area area) {
  Layout layout;
  Area inner = area.Shrunk(metrics().Margin(), metrics().Margin());
  Area buttons = inner.CutBottom(metrics().ButtonHeight());
  inner.CutBottom(metrics().Gap());
  layout.Place(txtFile_, inner);
  layout.Place(cmdCancel_, buttons.CutRight(cmdCancel_.width()));
  buttons.CutRight(metrics().Gap());
  layout.Place(cmdSave_, buttons.CutRight(cmdSave_.width()));
  buttons.CutRight(metrics().WideMargin());
  Area label = buttons.CutLeft(metrics().TextWidth(Text(Caption::LabelFind)) + metrics().Gap());
  const int down = (metrics().ButtonHeight() - metrics().LineHeight()) / 2;
  layout.Place(lblFind_, {label.left, label.top + down, label.right, label.bottom});
  layout.Place(cmdFind_, buttons.CutRight(cmdFind_.width()));
  buttons.CutRight(metrics().Gap());
  const int spare = (metrics().ButtonHeight() - metrics().FieldHeight()) / 2;
  layout.Place(txtFind_, buttons.Shrunk(0, spare));
}

// Enter in the search field searches.
HWND frmLog::DefaultButton() const {
  return GetFocus() == txtFind_.hwnd() ? cmdFind_.hwnd() : cmdCancel_.hwnd();
}

bool frmLog::OnKey(WPARAM key) {
  if (key == VK_F3) return FindNext(), true;
  if (key == 'F' && GetKeyState(VK_CONTROL) < 0) {
    SetFocus(txtFind_.hwnd());
    txtFind_.SelectAll();
    return true;
  }
  return false;
}

bool frmLog::OnCommand(int id) {
  switch (id) {
    case IDC_cmdFind:
      FindNext();
      return true;
    case IDC_cmdSave:
      Save();
      return true;
    case IDCANCEL:
      Close();
      return true;
    default:
      return false;
  }
}

// The search goes on from the selection, and round.
void frmLog::FindNext() {
  const std::string wanted = txtFind_.Text();
  if (wanted.empty()) {
    SetFocus(txtFind_.hwnd());
  } else if (!txtFile_.SelectNext(wanted)) {
    ShowMessage(Text(Caption::TextNotFound) + "\r\n" + wanted, Text(Caption::Information));
  }
}

void frmLog::Save() {
  const std::string path =
      AskForFile(hwnd(), FileDialog::Save, Text(Caption::LogFileTypes), "txt",
                 Text(Caption::SaveLogTitle), std::string(FileNamePart(path_)));
  if (path.empty()) return;
  const Outcome saved = env_.log.TrapOutcome("cmdSave_Click", [&]() -> Outcome {
    Outcome written = files_.Replace(path, bytes_);
    return written.ok() ? Outcome() : std::move(written).With("File: ", path);
  });
  if (!saved.ok()) {
    ShowMessage(path + "\r\n" + saved.description(), Text(Caption::Error), MB_ICONERROR);
  }
}

}  // namespace scourwell
