// SPDX-License-Identifier: MIT
#include "tools/frm_add_task.h"

#include <algorithm>

#include "machine/file_utils.h"
#include "text/text.h"
#include "widgets/file_dialog.h"
#include "widgets/layout.h"
#include "widgets/message_box.h"
#include "widgets/resource.h"

namespace scourwell {
namespace {

constexpr int kTaskWidth = 440;  // pixels at 96 dots per inch
constexpr int kUnfolded = 200;

// A program's name as a first proposal for the entry's.
std::string NameOf(const std::string& path) {
  const std::string name(FileNamePart(path));
  return name.substr(0, name.rfind('.'));
}

}  // namespace

bool frmAddTask::Ask(HWND owner) {
  ShowModal(owner);
  return accepted_;
}

SIZE frmAddTask::FirstSize() const {
  return {metrics().Scale(kTaskWidth),
          3 * (RowHeight() + metrics().Gap()) + metrics().ButtonHeight() + 3 * metrics().Margin()};
}

void frmAddTask::OnCreate() {
  lblLocation_.CreateWithKey(env_, hwnd(), IDC_lblTaskLocation, Text(Caption::TaskLocation));
  cboLocation_.Create(env_, hwnd(), IDC_cboTaskLocation);
  for (const std::string& place : places_) cboLocation_.Add(place);
  cboLocation_.Select(static_cast<int>(place_));
  cboLocation_.Enable(places_.size() > 1);
  lblName_.CreateWithKey(env_, hwnd(), IDC_lblTaskName, Text(Caption::TaskName));
  txtName_.Create(env_, hwnd(), IDC_txtTaskName, name_);
  lblProgram_.CreateWithKey(env_, hwnd(), IDC_lblTaskProgram, Text(Caption::TaskProgram));
  txtProgram_.Create(env_, hwnd(), IDC_txtTaskProgram, program_);
  cmdBrowse_.Create(env_, hwnd(), IDC_cmdTaskBrowse, Text(Caption::TaskBrowse));
  cmdOk_.Create(env_, hwnd(), IDC_cmdTaskOk, Text(Caption::DialogOk));
  cmdCancel_.Create(env_, hwnd(), IDC_cmdTaskCancel, Text(Caption::DialogCancel));
}

HWND frmAddTask::FirstFocus() const {
  return places_.size() > 1 ? cboLocation_.hwnd() : txtName_.hwnd();
}

void frmAddTask::OnSize(Area area) {
  Layout layout;
  Area inner = area.Shrunk(metrics().Margin(), metrics().Margin());
  int label = 0;
  for (const Caption caption : {Caption::TaskLocation, Caption::TaskName, Caption::TaskProgram}) {
    label = std::max(label, metrics().TextWidth(Text(caption)) + metrics().Gap());
  }
  const auto row = [&](const Label& caption) {
    Area line = inner.CutTop(RowHeight());
    inner.CutTop(metrics().Gap());
    Area left = line.CutLeft(label);
    left.CutTop(metrics().Scale(4));
    layout.Place(caption, left);
    return line;
  };
  Area place = row(lblLocation_);
  place.bottom += metrics().Scale(kUnfolded);  // of a combo box: with its list unfolded
  layout.Place(cboLocation_, place);
  layout.Place(txtName_, row(lblName_));
  Area program = row(lblProgram_);
  layout.Place(cmdBrowse_, program.CutRight(cmdBrowse_.width()));
  program.CutRight(metrics().Gap());
  layout.Place(txtProgram_, program);
  Area buttons = inner.CutBottom(metrics().ButtonHeight());
  layout.Place(cmdCancel_, buttons.CutRight(cmdCancel_.width()));
  buttons.CutRight(metrics().Gap());
  layout.Place(cmdOk_, buttons.CutRight(cmdOk_.width()));
}

bool frmAddTask::OnCommand(int id) {
  switch (id) {
    case IDC_cmdTaskBrowse:
      Browse();
      return true;
    case IDC_cmdTaskOk:
      Accept();
      return true;
    case IDC_cmdTaskCancel:
      Calls().Post(hwnd(), WM_CLOSE, 0, 0);
      return true;
    default:
      return false;
  }
}

void frmAddTask::Browse() {
  const std::string path = AskForFile(hwnd(), FileDialog::Open, Text(Caption::ProgramTypes), "exe");
  if (path.empty()) return;
  txtProgram_.SetText(path.find(' ') == std::string::npos ? path : "\"" + path + "\"");
  if (txtName_.Text().empty()) txtName_.SetText(NameOf(path));
}

void frmAddTask::Accept() {
  place_ = static_cast<std::size_t>(std::max(0, cboLocation_.Selected()));
  std::string program = txtProgram_.Text();
  const std::string name = txtName_.Text();
  // Only the unnamed entry of a key may stay without a name.
  const bool named = !TrimBlanks(name).empty() || (places_.size() == 1 && name_.empty());
  if (TrimBlanks(program).empty() || !named) {
    return ShowMessage(Text(Caption::NameAndProgramNeeded), Title());
  }
  name_ = name;
  program_ = std::move(program);
  accepted_ = true;
  Close();
}

}  // namespace scourwell
