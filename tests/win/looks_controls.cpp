// SPDX-License-Identifier: MIT
#include "tests/win/looks_controls.h"

#include <commctrl.h>

#include <algorithm>
#include <iterator>
#include <map>

#include "platform/win/window_calls.h"
#include "text/text.h"
#include "widgets/resource.h"

namespace scourwell::ui {
namespace {

constexpr int kHeadings[] = {IDC_lblScanHeading,   IDC_lblResults,       IDC_lblRemovalHeading,
                             IDC_lblIgnoreHeading, IDC_lblBackupHeading, IDC_lblToolHeading};
constexpr int kTitles[] = {IDC_lblWelcome};

struct SystemClass {
  const char* name;
  ControlKind kind;
};
constexpr SystemClass kClasses[] = {
    {"STATIC", ControlKind::Label},
    {"BUTTON", ControlKind::PushButton},
    {"EDIT", ControlKind::Edit},
    {"COMBOBOX", ControlKind::ComboBox},
    {"SysListView32", ControlKind::List},
    {"SysTreeView32", ControlKind::Tree},
    {"SysTabControl32", ControlKind::Tabs},
    {"msctls_statusbar32", ControlKind::StatusBar},
    {"msctls_progress32", ControlKind::Other},
    {"msctls_updown32", ControlKind::Other},
    {"msctls_trackbar32", ControlKind::Other},
    {"SCROLLBAR", ControlKind::Other},
    {"LISTBOX", ControlKind::List},
};

ControlKind KindOf(HWND window, DWORD style) {
  const std::string name = ClassName(window);
  ControlKind kind = ControlKind::Pane;
  for (const SystemClass& each : kClasses) {
    if (EqualsNoCase(each.name, name)) kind = each.kind;
  }
  if (kind == ControlKind::Label) {
    const DWORD type = style & SS_TYPEMASK;
    if (type == SS_OWNERDRAW) return ControlKind::LiveLabel;
    const bool text = type <= SS_RIGHT || type == SS_SIMPLE || type == SS_LEFTNOWORDWRAP;
    return text ? kind : ControlKind::Other;
  }
  if (kind != ControlKind::PushButton) return kind;
  switch (style & BS_TYPEMASK) {
    case BS_PUSHBUTTON:
    case BS_DEFPUSHBUTTON:
    case BS_OWNERDRAW:
      return kind;
    case BS_GROUPBOX:
      return ControlKind::GroupBox;
    default:
      return ControlKind::CheckBox;
  }
}

void AddBelow(HWND parent, std::vector<ShownControl>* controls) {
  for (HWND window = GetWindow(parent, GW_CHILD); window; window = GetWindow(window, GW_HWNDNEXT)) {
    if (!IsWindowVisible(window)) continue;
    const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
    const ControlKind kind = KindOf(window, style);
    ShownControl control = {window, parent, GetDlgCtrlID(window), kind, style, {}, {}, {}};
    GetWindowRect(window, &control.place);
    RECT client = {};
    GetClientRect(window, &client);
    control.client = {client.right, client.bottom};
    if (kind != ControlKind::Edit && kind != ControlKind::Pane) control.text = Text(window);
    controls->push_back(control);
    if (kind == ControlKind::Pane || kind == ControlKind::Tabs) AddBelow(window, controls);
  }
}

LRESULT FontHandle(const ShownControl& control) {
  DWORD_PTR font = 0;
  SendMessageTimeoutW(control.window, WM_GETFONT, 0, 0, SMTO_NORMAL, 5000, &font);
  return static_cast<LRESULT>(font);
}

template <std::size_t n>
bool IsOneOf(const int (&ids)[n], int id) {
  return std::find(std::begin(ids), std::end(ids), id) != std::end(ids);
}

}  // namespace

bool ShownControl::TakesKeys() const {
  switch (kind) {
    case ControlKind::PushButton:
    case ControlKind::CheckBox:
    case ControlKind::Edit:
    case ControlKind::ComboBox:
    case ControlKind::List:
    case ControlKind::Tree:
    case ControlKind::Tabs:
      return true;
    default:
      return false;
  }
}

bool ShownControl::HasPrefix() const {
  switch (kind) {
    case ControlKind::Label:
      return (style & SS_NOPREFIX) == 0;
    case ControlKind::PushButton:
    case ControlKind::CheckBox:
    case ControlKind::GroupBox:
      return true;
    default:
      return false;
  }
}

std::vector<ShownControl> ShownControls(HWND top) {
  std::vector<ShownControl> controls;
  AddBelow(top, &controls);
  return controls;
}

Measure::Measure(const std::vector<ShownControl>& controls) {
  std::map<LRESULT, int> uses;
  for (const ShownControl& control : controls) {
    if (control.TakesKeys()) ++uses[FontHandle(control)];
  }
  int most = 0;
  for (const auto& [font, count] : uses) {
    if (count <= most) continue;
    most = count;
    usual_ = font;
  }
}

HFONT Measure::FontOf(const ShownControl& control) const {
  if (FontHandle(control) == usual_) return metrics_.font();
  if (IsOneOf(kTitles, control.id)) return metrics_.title();
  return IsOneOf(kHeadings, control.id) ? metrics_.heading() : metrics_.bold();
}

SIZE Measure::Text(HFONT font, const std::string& text, UINT format, int width) const {
  HDC dc = GetDC(nullptr);
  const HGDIOBJ old = SelectObject(dc, font);
  RECT place = {0, 0, width, 0};
  Calls().Draw(dc, text, &place, format | DT_CALCRECT);
  SelectObject(dc, old);
  ReleaseDC(nullptr, dc);
  return {place.right, place.bottom};
}

}  // namespace scourwell::ui
