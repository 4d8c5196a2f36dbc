// SPDX-License-Identifier: MIT
#include "shell/frm_about.h"

#include <algorithm>

#include "text/escaped.h"
#include "widgets/file_dialog.h"
#include "widgets/layout.h"
#include "widgets/resource.h"

namespace scourwell {

frmAbout::frmAbout(const WindowEnv& env, Application& app)
    : ModalWindow(env, "frmAbout"),
      app_(app),
      lines_(AboutLines(app)),
      header_(env, HeaderPane::Size::Large, {IDC_lblAboutHeading, IDC_lblAboutText, 0}) {}

void frmAbout::OnCreate() {
  header_.Create(hwnd(), IDC_AboutHeader);
  header_.SetHeading(app_.Title());
  header_.SetText(Text(Caption::AboutText));
  for (std::size_t i = 0; i < kAboutLines; ++i) {
    const int id = IDC_lblAboutCaption + 2 * static_cast<int>(i);
    captions_[i].Create(env_, hwnd(), id, Text(lines_[i].caption));
    values_[i].Create(env_, hwnd(), id + 1, ForShowing(lines_[i].value), SS_LEFT);
  }
  cmdCopy_.Create(env_, hwnd(), IDC_cmdCopyForReport, Text(Caption::CopyForReport));
  cmdClose_.Create(env_, hwnd(), IDCANCEL, Text(Caption::CloseTool));
}

int frmAbout::CaptionColumn() const {
  int widest = 0;
  for (const AboutLine& line : lines_) {
    widest = std::max(widest, metrics().TextWidth(Text(line.caption)));
  }
  return widest + metrics().Margin();
}

// A long folder takes several lines.
int frmAbout::ValueHeight(std::size_t line) const {
  const int width = Width() - 2 * metrics().Margin() - CaptionColumn();
  return metrics().TextHeight(ForShowing(lines_[line].value), width) + metrics().Scale(4);
}

SIZE frmAbout::FirstSize() const {
  int height = header_.Height() + 3 * metrics().Margin() + metrics().ButtonHeight();
  for (std::size_t i = 0; i < kAboutLines; ++i) height += ValueHeight(i);
  return {Width(), height};
}

void frmAbout::OnSize(Area area) {
  Layout layout;
  layout.Place(header_.hwnd(), area.CutTop(header_.Height()));
  Area inner = area.Shrunk(metrics().Margin(), metrics().Margin());
  Area buttons = inner.CutBottom(metrics().ButtonHeight());
  layout.Place(cmdClose_, buttons.CutRight(cmdClose_.width()));
  layout.Place(cmdCopy_, buttons.CutLeft(cmdCopy_.width()));
  const int column = CaptionColumn();
  for (std::size_t i = 0; i < kAboutLines; ++i) {
    Area line = inner.CutTop(ValueHeight(i));
    layout.Place(captions_[i], line.CutLeft(column));
    layout.Place(values_[i], line);
  }
}

bool frmAbout::OnCommand(int id) {
  switch (id) {
    case IDC_cmdCopyForReport:
      static_cast<void>(CopyText(hwnd(), AboutReport(app_)));
      return true;
    case IDCANCEL:
      Close();
      return true;
    default:
      return false;
  }
}

}  // namespace scourwell
