// SPDX-License-Identifier: MIT
#include "results/frm_log.h"

#include "machine/file_utils.h"
#include "machine/reasons.h"
#include "text/escaped.h"
#include "text/text.h"
#include "widgets/access_keys.h"
#include "widgets/button_rows.h"
#include "widgets/file_dialog.h"
#include "widgets/layout.h"
#include "widgets/message_box.h"
#include "widgets/resource.h"

namespace scourwell {

frmLog::frmLog(const WindowEnv& env, Files& files, CodePages& code_pages, std::string path,
               std::function<void()> save_report)
    : ModalWindow(env, "frmLog"),
      files_(files),
      code_pages_(code_pages),
      path_(std::move(path)),
      path_of_report_(path_),
      save_report_(std::move(save_report)) {}

SIZE frmLog::FirstSize() const { return {metrics().Scale(600), metrics().Scale(400)}; }

void frmLog::OnCreate() {
  lblFind_.CreateWithKey(env_, hwnd(), IDC_lblFind, Text(Caption::LabelFind));
  txtFind_.Create(env_, hwnd(), IDC_txtFind);
  AccessKeys keys({Text(Caption::LabelFind)});
  cmdFind_.Create(env_, hwnd(), IDC_cmdFind, keys.Add(Text(Caption::FindNext)));
  txtFile_.Create(env_, hwnd(), IDC_txtFile);
  txtFile_.SetName(Title());
  cmdOpen_.Create(env_, hwnd(), IDC_cmdOpen, keys.Add(Text(Caption::OpenLog)));
  cmdReport_.Create(env_, hwnd(), IDC_cmdReport, keys.Add(Text(Caption::SaveReport)));
  cmdSave_.Create(env_, hwnd(), IDC_cmdSave, keys.Add(Text(Caption::SaveLog)));
  cmdCancel_.Create(env_, hwnd(), IDCANCEL, Text(Caption::CloseLog));
  Load();
}

void frmLog::Load() {
  const Outcome loaded = env_.log.TrapOutcome("frmLog_Load", [&]() -> Outcome {
    bytes_.clear();
    Outcome read = files_.Read(path_, kLargest, &bytes_);
    Show();
    return read.ok() ? Outcome() : std::move(read).With("LogFile: ", path_);
  });
  cmdSave_.Enable(loaded.ok());
  cmdReport_.Enable(save_report_ && EqualsNoCase(path_, path_of_report_));
  if (!loaded.ok()) {
    ShowMessage(path_ + "\r\n" + ReasonText(env_.captions, loaded), Text(Caption::Error),
                MB_ICONERROR);
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
  const Button* const left[] = {&cmdOpen_, &cmdReport_};
  const Button* const right[] = {&cmdCancel_, &cmdSave_};
  PlaceButtons(layout, metrics(), &inner, left, right);
  inner.CutBottom(metrics().Margin());
  Area buttons = inner.CutTop(metrics().ButtonHeight());
  inner.CutTop(metrics().Gap());
  layout.Place(txtFile_, inner);
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
    case IDC_cmdOpen:
      Open();
      return true;
    case IDC_cmdReport:
      save_report_();
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

// The dialog begins in the folder of the log that is shown.
void frmLog::Open() {
  std::string path = AskForFile(hwnd(), FileDialog::Open, Text(Caption::LogFileTypes), "txt",
                                Text(Caption::OpenLogTitle), path_);
  if (path.empty()) return;
  path_ = std::move(path);
  Load();
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
    ShowMessage(path + "\r\n" + ReasonText(env_.captions, saved), Text(Caption::Error),
                MB_ICONERROR);
  }
}

}  // namespace scourwell
