// SPDX-License-Identifier: MIT
#pragma once

// What stands in a window of the program, read from outside.

#include <windows.h>

#include <string>
#include <vector>

#include "tests/win/driver.h"
#include "widgets/metrics.h"

namespace scourwell::ui {

enum class ControlKind {
  Label,      // a static text
  LiveLabel,  // a text that the program draws
  PushButton,
  CheckBox,  // and option buttons
  GroupBox,
  Edit,
  ComboBox,
  List,
  Tree,
  Tabs,
  StatusBar,
  Pane,  // a window of the program's own
  Other,
};

struct ShownControl {
  HWND window;
  HWND parent;
  int id;
  ControlKind kind;
  DWORD style;
  RECT place;  // on the screen
  SIZE client;
  std::string text;

  // Something that the user can operate.
  bool TakesKeys() const;
  // "&" in the text marks an access key.
  bool HasPrefix() const;
};

// Every visible control below the window, however deep, in the order of Tab; not what the system's
// own controls are made of.
std::vector<ShownControl> ShownControls(HWND top);

// Measures texts as the program draws them. Handles of fonts mean nothing outside their process,
// so the fonts are made anew from the same metrics: a control whose font is that of most others has
// the message font, those of headings are known by id, any other is bold.
class Measure {
 public:
  explicit Measure(const std::vector<ShownControl>& controls);

  HFONT FontOf(const ShownControl& control) const;
  // With the flags of DrawText.
  SIZE Text(HFONT font, const std::string& text, UINT format, int width = 0) const;
  const Metrics& metrics() const { return metrics_; }

 private:
  Metrics metrics_;
  LRESULT usual_ = 0;
};

}  // namespace scourwell::ui
