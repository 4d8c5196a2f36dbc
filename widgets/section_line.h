// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/label.h"
#include "widgets/layout.h"

namespace scourwell {

// The heading of a group of controls, with a line up to the right edge.
class SectionLine {
 public:
  void Create(const WindowEnv& env, HWND parent, const std::string& text) {
    heading_.Create(env, parent, -1, text);
    line_.Create(env, parent);
    width_ = env.metrics.TextWidth(text) + env.metrics.Gap();
  }
  void Place(Layout* layout, Area area) const {
    layout->Place(heading_, area.CutLeft(std::min(width_, area.width())));
    const int middle = area.top + area.height() / 2;
    layout->Place(line_, {area.left, middle, area.right, middle + 2});
  }

 private:
  class Line : public Control {
   public:
    void Create(const WindowEnv& env, HWND parent) {
      CreateHandle(env, parent, "STATIC", SS_ETCHEDHORZ, 0, -1);
    }
  };

  Label heading_;
  Line line_;
  int width_ = 0;
};

}  // namespace scourwell
