// SPDX-License-Identifier: MIT
#include "tests/win/looks_rules.h"

#include <algorithm>
#include <iterator>
#include <map>

#include "text/text.h"
#include "widgets/access_keys.h"
#include "widgets/resource.h"

namespace scourwell::ui {
namespace {

// They show a path, which may have any length, and end in dots when it is too long.
constexpr int kPathLabels[] = {IDC_lblScan, IDC_lblBackupCount};
// They lie over the middle of an empty list on purpose.
constexpr int kOverLists[] = {IDC_lblEmpty, IDC_lblIgnoreEmpty, IDC_lblBackupEmpty,
                              IDC_lblToolEmpty};

// Their columns share the room that there is.
constexpr int kFittedLists[] = {IDC_lstObjects, IDC_ContentsList};

template <std::size_t n>
bool IsOneOf(const int (&ids)[n], int id) {
  return std::find(std::begin(ids), std::end(ids), id) != std::end(ids);
}

std::string Name(const ShownControl& control) {
  return "control " + std::to_string(control.id) + " \"" + control.text + "\"";
}

std::string Size(const SIZE& size) {
  return std::to_string(size.cx) + " x " + std::to_string(size.cy);
}

// By the program: such a button breaks its text into lines.
bool IsDrawn(const ShownControl& control) {
  return control.kind == ControlKind::PushButton && (control.style & BS_TYPEMASK) == BS_OWNERDRAW;
}

// Space that a control needs around its text.
SIZE Frame(const ShownControl& control, const Metrics& metrics) {
  switch (control.kind) {
    case ControlKind::PushButton:
      if (IsDrawn(control)) return {metrics.Scale(4), 0};
      return {metrics.Scale(8), metrics.Scale(4)};
    case ControlKind::CheckBox:
      return {metrics.Scale(13) + 6, 0};
    case ControlKind::GroupBox:
      return {metrics.Scale(16), 0};
    default:
      return {0, 0};
  }
}

UINT Format(const ShownControl& control) {
  if (control.kind == ControlKind::LiveLabel) {
    const UINT shown = static_cast<UINT>(GetWindowLongW(control.window, GWL_USERDATA));
    return shown & (DT_WORDBREAK | DT_SINGLELINE | DT_NOPREFIX);
  }
  const UINT prefix = control.HasPrefix() ? 0 : DT_NOPREFIX;
  if (control.kind == ControlKind::Label) {
    return prefix | ((control.style & SS_TYPEMASK) <= SS_RIGHT ? DT_WORDBREAK : 0);
  }
  return prefix |
         (IsDrawn(control) || (control.style & BS_MULTILINE) ? DT_WORDBREAK : DT_SINGLELINE);
}

void CheckText(const ShownControl& control, const Measure& measure, Faults* faults) {
  const bool has_text = control.HasPrefix() || control.kind == ControlKind::Label ||
                        control.kind == ControlKind::LiveLabel;
  if (!has_text || control.text.empty() || IsOneOf(kPathLabels, control.id)) return;
  const SIZE frame = Frame(control, measure.metrics());
  const SIZE room = {control.client.cx - frame.cx, control.client.cy - frame.cy};
  const SIZE text = measure.Text(measure.FontOf(control), control.text, Format(control), room.cx);
  const bool tall = control.kind != ControlKind::GroupBox && text.cy > room.cy;
  if (text.cx > room.cx || tall) {
    faults->push_back("the text of " + Name(control) + " is cut: it takes " + Size(text) + " of " +
                      Size(room));
  }
}

void CheckParts(const ShownControl& control, const Measure& measure, Faults* faults) {
  std::vector<TextPart> parts;
  if (control.kind == ControlKind::List && ClassName(control.window) != "ListBox") {
    parts = ColumnHeads(control.window);
  }
  if (control.kind == ControlKind::Tabs) parts = Tabs(control.window);
  if (control.kind == ControlKind::StatusBar) parts = StatusParts(control.window);
  const int frame = measure.metrics().Scale(6);
  for (const TextPart& part : parts) {
    const SIZE text =
        measure.Text(measure.metrics().font(), part.text, DT_SINGLELINE | DT_NOPREFIX);
    if (part.text.empty() || text.cx + frame <= part.width) continue;
    faults->push_back("the part \"" + part.text + "\" of control " + std::to_string(control.id) +
                      " is cut: it takes " + std::to_string(text.cx + frame) + " of " +
                      std::to_string(part.width));
  }
}

void CheckInside(const ShownControl& control, Faults* faults) {
  RECT client = {};
  GetClientRect(control.parent, &client);
  MapWindowPoints(control.parent, nullptr, reinterpret_cast<POINT*>(&client), 2);
  const RECT& place = control.place;
  // What scrolls may lie above or below.
  if (GetWindowLongW(control.parent, GWL_STYLE) & WS_VSCROLL) {
    client.top = std::min(client.top, place.top);
    client.bottom = std::max(client.bottom, place.bottom);
  }
  if (place.left < client.left || place.top < client.top || place.right > client.right ||
      place.bottom > client.bottom) {
    faults->push_back(Name(control) + " leaves its parent");
  }
  if (control.TakesKeys() && IsRectEmpty(&place)) faults->push_back(Name(control) + " has no size");
}

bool MayLieOver(const ShownControl& control) {
  return control.kind == ControlKind::GroupBox || control.kind == ControlKind::Tabs ||
         IsOneOf(kOverLists, control.id);
}

void CheckOverlaps(const std::vector<ShownControl>& controls, Faults* faults) {
  for (auto one = controls.begin(); one != controls.end(); ++one) {
    for (auto other = one + 1; other != controls.end(); ++other) {
      RECT common = {};
      if (one->parent != other->parent || MayLieOver(*one) || MayLieOver(*other)) continue;
      if (!IntersectRect(&common, &one->place, &other->place)) continue;
      faults->push_back(Name(*one) + " and " + Name(*other) + " overlap by " +
                        Size({common.right - common.left, common.bottom - common.top}));
    }
  }
}

const ShownControl* Find(const std::vector<ShownControl>& controls, HWND window) {
  const auto found = std::find_if(controls.begin(), controls.end(),
                                  [&](const ShownControl& each) { return each.window == window; });
  return found == controls.end() ? nullptr : &*found;
}

// The round of the Tab key.
std::vector<const ShownControl*> TabRound(HWND top, const std::vector<ShownControl>& controls) {
  std::vector<const ShownControl*> round;
  HWND window = nullptr;
  for (std::size_t i = 0; i <= controls.size(); ++i) {
    window = GetNextDlgTabItem(top, window, FALSE);
    const ShownControl* control = Find(controls, window);
    if (!control || std::find(round.begin(), round.end(), control) != round.end()) break;
    round.push_back(control);
  }
  return round;
}

// To the right, in a row or in a column of its own, or further down.
bool IsForward(const RECT& from, const RECT& to) {
  if (to.left >= from.right) return true;
  const LONG shared = std::min(from.bottom, to.bottom) - std::max(from.top, to.top);
  const LONG lower = std::min(from.bottom - from.top, to.bottom - to.top);
  const bool one_row = 2 * shared > lower;
  return one_row ? to.left >= from.left : to.top >= from.top;
}

// Of one that stands for several, such as the option buttons of a group, the first is enough.
bool IsReachedWithOthers(const ShownControl& control) {
  const DWORD type = control.style & BS_TYPEMASK;
  return control.kind == ControlKind::CheckBox &&
         (type == BS_RADIOBUTTON || type == BS_AUTORADIOBUTTON);
}

// The key that a text marks, or 0.
char32_t KeyOf(const std::string& text) {
  for (std::size_t i = 0; i + 1 < text.size(); ++i) {
    if (text[i] != '&') continue;
    if (text[i + 1] != '&') return KeyLetter(text, i + 1);
    ++i;
  }
  return 0;
}

}  // namespace

Faults PlacementFaults(const std::vector<ShownControl>& controls, const Measure& measure) {
  Faults faults;
  for (const ShownControl& control : controls) {
    CheckText(control, measure, &faults);
    CheckParts(control, measure, &faults);
    CheckInside(control, &faults);
    const bool sideways = (GetWindowLongW(control.window, GWL_STYLE) & WS_HSCROLL) != 0;
    if (sideways && IsOneOf(kFittedLists, control.id)) {
      faults.push_back(Name(control) + " scrolls sideways");
    }
  }
  CheckOverlaps(controls, &faults);
  return faults;
}

Faults KindFaults(const std::vector<ShownControl>& controls, bool ansi) {
  Faults faults;
  for (const ShownControl& control : controls) {
    // The common controls are wide ones in Wine, whoever makes them.
    if (ansi ? control.kind == ControlKind::Pane && IsWindowUnicode(control.window)
             : !IsWindowUnicode(control.window)) {
      faults.push_back(Name(control) + " is of the other family's kind");
    }
  }
  return faults;
}

Faults TabFaults(HWND top, const std::vector<ShownControl>& controls) {
  Faults faults;
  const std::vector<const ShownControl*> round = TabRound(top, controls);
  for (const ShownControl& control : controls) {
    if (!control.TakesKeys() || !IsWindowEnabled(control.window)) continue;
    const bool reached = std::find(round.begin(), round.end(), &control) != round.end();
    if (!reached && !IsReachedWithOthers(control)) {
      faults.push_back("Tab does not reach " + Name(control));
    }
  }
  for (std::size_t i = 1; i < round.size(); ++i) {
    // Tabs come last, behind the buttons, as in the system's own property sheets.
    if (round[i]->kind == ControlKind::Tabs) continue;
    if (IsForward(round[i - 1]->place, round[i]->place)) continue;
    faults.push_back("Tab goes back from " + Name(*round[i - 1]) + " to " + Name(*round[i]));
  }
  return faults;
}

Faults AccessKeyFaults(const std::vector<ShownControl>& controls,
                       const std::vector<std::string>& others) {
  Faults faults;
  std::map<char32_t, std::string> keys;
  const auto add = [&](const std::string& text) {
    const char32_t key = KeyOf(text);
    if (key == 0) return;
    const auto [at, added] = keys.emplace(key, text);
    if (!added) faults.push_back("\"" + at->second + "\" and \"" + text + "\" share a key");
  };
  for (const std::string& text : others) add(text);
  for (const ShownControl& control : controls) {
    if (control.HasPrefix()) add(control.text);
  }
  return faults;
}

Faults DefaultButtonFaults(const std::vector<ShownControl>& controls, bool has_one) {
  const auto count = std::count_if(controls.begin(), controls.end(), [](const ShownControl& each) {
    DWORD_PTR code = 0;
    if (each.kind != ControlKind::PushButton) return false;
    SendMessageTimeoutW(each.window, WM_GETDLGCODE, 0, 0, SMTO_NORMAL, 5000, &code);
    return (code & DLGC_DEFPUSHBUTTON) != 0;
  });
  if (count == (has_one ? 1 : 0)) return {};
  return {std::to_string(count) + " default buttons"};
}

}  // namespace scourwell::ui
