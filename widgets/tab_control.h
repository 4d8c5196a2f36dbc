// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/control.h"
#include "widgets/window.h"

namespace scourwell {

// A row of tabs above the place of their pages. Made behind the pages: it lies below them, and Tab
// reaches it last, as in a property sheet.
class TabControl : public Control {
 public:
  void Create(const WindowEnv& env, HWND parent, int id);
  void Add(const std::string& text);
  int count() const { return count_; }
  int Selected() const;
  void Select(int index) const;
  // What of its place is left for a page.
  Area Inside(Area area) const;
  // How much of the height goes to the tabs and the frame; before there is a window.
  static int FrameHeight(const Metrics& metrics) {
    return metrics.LineHeight() + metrics.Scale(14);
  }
  static int FrameWidth(const Metrics& metrics) { return metrics.Scale(8); }

 private:
  int count_ = 0;
};

// What lies on a tab: its controls, whose messages the dialog gets.
class TabPage : public Window {
 public:
  explicit TabPage(const WindowEnv& env) : Window(env, "TabPage") {}
  void Create(HWND dialog);

 private:
  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
};

}  // namespace scourwell
