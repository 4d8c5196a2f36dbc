// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>
#include <richedit.h>

#include <string_view>

#include "widgets/subclassed_control.h"

namespace scourwell {

// A long text to read, of any size: the system's plain text box holds 64 KB on Windows 95, 98 and
// Me, so the rich one is used where it is installed.
class TextView : public SubclassedControl {
 public:
  void Create(const WindowEnv& env, HWND parent, int id);
  // What a screen reader calls it before it reads the text.
  void SetName(const std::string& name) { Annotate(name); }
  void SetText(const std::string& text);
  // Selects the next place of a text, which is not empty, behind the selection, without case, and
  // goes on from the top after the last. False when there is none.
  bool SelectNext(const std::string& wanted) const;

 private:
  // Positions are characters as the box counts them.
  LONG Count(std::string_view part) const;
  LONG SelectionEnd() const;
  void Select(CHARRANGE place) const;

  bool short_line_ends_ = false;
  std::string text_;
};

}  // namespace scourwell
