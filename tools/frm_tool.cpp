// SPDX-License-Identifier: MIT
#include "tools/frm_tool.h"

#include <windowsx.h>

#include <algorithm>

#include "machine/counting.h"
#include "text/unicode.h"
#include "widgets/button_rows.h"
#include "widgets/message_box.h"
#include "widgets/resource.h"

namespace scourwell {
namespace {

constexpr int kWidth = 820;  // of the client area, pixels at 96 dots per inch
constexpr int kHeight = 500;
constexpr int kSmallestWidth = 560;
constexpr int kSmallestHeight = 320;
constexpr std::size_t kMostFailures = 8;
constexpr std::size_t kLongestLine = 200;

}  // namespace

frmTool::frmTool(const WindowEnv& env, const char* name, const char* prefix, ToolBox& tools,
                 const Texts& texts)
    : ModalWindow(env, name),
      tools_(tools),
      prefix_(prefix),
      texts_(texts),
      header_(env, HeaderPane::Size::Small, {IDC_lblToolHeading, IDC_lblToolText, 0}) {}

SIZE frmTool::FirstSize() const { return {metrics().Scale(kWidth), metrics().Scale(kHeight)}; }

SIZE frmTool::SmallestSize() const {
  return {std::max(metrics().Scale(kSmallestWidth), ButtonsWidth()),
          metrics().Scale(kSmallestHeight)};
}

// The width of the row of buttons with its margins.
int frmTool::ButtonsWidth() const {
  int width = 2 * metrics().Margin() + cmdClose_.width();
  for (std::size_t i = 0; i < Commands().size(); ++i) {
    width += buttons_[i].width() + metrics().Gap();
  }
  return width;
}

void frmTool::OnCreate() {
  view_.emplace(Table());
  header_.Create(hwnd(), IDC_ToolHeader);
  header_.SetHeading(Text(texts_.title));
  header_.SetText(Text(texts_.explanation));
  lblFilter_.CreateWithKey(env_, hwnd(), IDC_lblFilter, Text(Caption::LabelFilter));
  txtFilter_.Create(env_, hwnd(), IDC_txtFilter);
  // Made before the list, so that it lies above it.
  lblEmpty_.Create(env_, hwnd(), IDC_lblToolEmpty, {}, SS_CENTER);
  lblEmpty_.Show(false);
  list_.row_count = [this] { return view_->size(); };
  list_.cell_text = [this](std::size_t row, int column) {
    return IsRow(row) ? Table().Cell(view_->Row(row), column) : std::string();
  };
  list_.row_tip = [this](std::size_t row) {
    return IsRow(row) ? TipOf(view_->Row(row)) : std::string();
  };
  list_.Create(env_, hwnd(), IDC_lstTool, MaySelectSeveral());
  list_.RememberWidths(env_, HelpTopic());
  list_.SetName(Title());
  const auto captions = ColumnCaptions();
  const auto columns = Columns();
  for (std::size_t i = 0; i < captions.size(); ++i) {
    list_.AddColumn(static_cast<int>(i), Text(captions[i]), metrics().Scale(columns[i].width));
  }
  if (!ColumnOrder().empty()) list_.SetColumnOrder(ColumnOrder());
  lblStatus_.Create(env_, hwnd(), IDC_lblToolStatus);
  const auto commands = Commands();
  for (std::size_t i = 0; i < commands.size(); ++i) {
    buttons_[i].Create(env_, hwnd(), commands[i].id, Text(commands[i].caption));
  }
  cmdClose_.Create(env_, hwnd(), IDC_cmdToolClose, Text(Caption::CloseTool));
}

void frmTool::OnSize(Area area) {
  Layout layout;
  layout.Place(header_.hwnd(), area.CutTop(header_.Height()));
  Area inner = area.Shrunk(metrics().Margin(), metrics().Margin());
  Area filter = inner.CutTop(metrics().LineHeight() + metrics().Scale(8));
  const int label = metrics().TextWidth(Text(Caption::LabelFilter)) + metrics().Gap();
  Area caption = filter.CutLeft(label);
  caption.CutTop(metrics().Scale(4));
  layout.Place(lblFilter_, caption);
  layout.Place(txtFilter_, filter.CutLeft(std::min(metrics().Scale(260), filter.width() * 2 / 5)));
  filter.CutLeft(metrics().Margin());
  filter.CutTop(metrics().Scale(4));
  layout.Place(lblStatus_, filter);
  inner.CutTop(metrics().Gap());
  std::vector<const Button*> commands;
  for (std::size_t i = 0; i < Commands().size(); ++i) commands.push_back(&buttons_[i]);
  const Button* close = &cmdClose_;
  PlaceButtons(layout, metrics(), &inner, commands, std::span(&close, 1));
  inner.CutBottom(metrics().Margin());
  layout.Place(list_, inner);
  const int line = metrics().LineHeight();
  const Area empty = inner.Shrunk(metrics().Scale(4), std::max(0, inner.height() / 2 - line));
  layout.Place(lblEmpty_, {empty.left, empty.top, empty.right, empty.top + 2 * line});
}

void frmTool::ShowRows() {
  const int before = list_.Selected();
  view_->Update();
  list_.ShowSortArrow(view_->sort_column(), view_->ascending());
  ShowSelection(before);
  lblEmpty_.SetText(Table().size() == 0 ? EmptyText() : Text(Caption::NothingMatchesFilter));
  lblEmpty_.Show(view_->size() == 0);
  FitColumns();
  list_.Redraw();
  ShowFigures();
  EnableCommands();
}

// Without a choice the keyboard waits where the last one was, with nothing selected.
void frmTool::ShowSelection(int before) {
  filling_ = true;
  if (shown_ == 0) view_->Choose(0);
  list_.Select(-1, false);
  list_.SetItemCount(shown_ = view_->size());
  const int chosen = view_->Chosen();
  if (chosen >= 0) list_.Select(chosen, true);
  const int focus = chosen >= 0 ? chosen : std::min(before, static_cast<int>(view_->size()) - 1);
  if (focus >= 0) list_.FocusRow(focus);
  filling_ = false;
}

void frmTool::ShowFigures() {
  std::string text = Figures();
  if (view_->size() != Table().size()) {
    text += ", " + CountedText(env_.captions, view_->size(), Caption::EntriesShown);
  }
  lblStatus_.SetText(text);
}

bool frmTool::Selected(std::size_t* row) const {
  const int shown = list_.Selected();
  if (shown < 0 || static_cast<std::size_t>(shown) >= view_->size()) return false;
  *row = view_->Row(static_cast<std::size_t>(shown));
  return *row < Table().size();
}

std::vector<std::size_t> frmTool::SelectedRows() const {
  std::vector<std::size_t> rows;
  for (int shown = -1; (shown = list_.NextSelected(shown)) >= 0;) {
    const auto index = static_cast<std::size_t>(shown);
    if (IsRow(index)) rows.push_back(view_->Row(index));
  }
  return rows;
}

void frmTool::SelectRows(const std::vector<std::size_t>& rows) {
  filling_ = true;
  for (const std::size_t row : rows) {
    if (const int shown = view_->Find(row); shown >= 0) list_.Select(shown, true);
  }
  filling_ = false;
  EnableCommands();
}

Button& frmTool::ButtonOf(int id) {
  const auto commands = Commands();
  std::size_t i = 0;
  while (i + 1 < commands.size() && commands[i].id != id) ++i;
  return buttons_[i];
}

void frmTool::ShowFailures(const std::vector<std::string>& failures, Caption heading) const {
  if (failures.empty()) return;
  std::string text = Text(heading) + "\r\n";
  for (std::size_t i = 0; i < failures.size() && i < kMostFailures; ++i) {
    text += "\r\n";
    text += WholeCharacters(failures[i], kLongestLine);
  }
  if (failures.size() > kMostFailures) text += "\r\n...";
  ShowMessage(text, Text(Caption::Error), MB_ICONWARNING);
}

LRESULT frmTool::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_COMMAND:
      if (LOWORD(wparam) == IDC_txtFilter && HIWORD(wparam) == EN_CHANGE) return Filter(), 0;
      break;
    case WM_CONTEXTMENU:
      if (reinterpret_cast<HWND>(wparam) != list_.hwnd()) break;
      ShowMenu({GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)});
      return 0;
    case WM_CTLCOLORSTATIC:
      if (reinterpret_cast<HWND>(lparam) != lblEmpty_.hwnd()) break;
      SetBkColor(reinterpret_cast<HDC>(wparam), GetSysColor(COLOR_WINDOW));
      SetTextColor(reinterpret_cast<HDC>(wparam), GetSysColor(COLOR_WINDOWTEXT));
      return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
    default:
      break;
  }
  return ModalWindow::OnMessage(message, wparam, lparam);
}

void frmTool::Filter() {
  view_->SetFilter(txtFilter_.Text());
  if (view_->Chosen() < 0) view_->Choose(0);  // what was typed for is there to be used
  ShowRows();
}

void frmTool::Sort(int column) {
  view_->SortBy(column);
  ShowRows();
}

bool frmTool::OnCommand(int id) {
  if (id == IDC_cmdToolClose) return Calls().Post(hwnd(), WM_CLOSE, 0, 0), true;
  return OnRowCommand(id) || OnToolCommand(id);
}

LRESULT frmTool::OnNotify(NMHDR* header) {
  if (const auto answer = list_.Answer(header)) return *answer;
  if (header->hwndFrom != list_.hwnd()) return 0;
  switch (header->code) {
    case LVN_COLUMNCLICK:
      Sort(reinterpret_cast<NMLISTVIEW*>(header)->iSubItem);
      return 0;
    case LVN_ITEMCHANGED:
    case LVN_ODSTATECHANGED:
      if (filling_) return 0;
      view_->Choose(list_.Selected());
      EnableCommands();
      return 0;
    case NM_DBLCLK:
      OnToolCommand(IDC_cmdViewInfo);
      return 0;
    case NM_CUSTOMDRAW:
      return Draw(reinterpret_cast<NMLVCUSTOMDRAW*>(header));
    default:
      return 0;
  }
}

// The list may still show rows that the table has no more.
bool frmTool::IsRow(std::size_t index) const {
  return index < view_->size() && view_->Row(index) < Table().size();
}

}  // namespace scourwell
