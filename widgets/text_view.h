#pragma once

#include "widgets/control.h"

namespace scourwell {

// A long text to read, of any size: the system's plain text box holds 64 KB on Windows 95, 98 and
// Me, so the rich one is used where it is installed.
class TextView : public Control {
 public:
  // In letters of one width.
  void Create(const WindowEnv& env, HWND parent, int id);
  void Select(std::size_t start, std::size_t end) const;
  // Where the selection ends, in characters.
  std::size_t SelectionEnd() const;

 private:
  FontHandle font_;
};

}  // namespace scourwell
