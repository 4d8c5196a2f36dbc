// SPDX-License-Identifier: MIT
#include "refc/lines.h"

#include "text/ini_text.h"

namespace scourwell::refc {

bool Lines::Next() {
  if (next_ >= text_.size()) return false;
  begin_ = next_;
  line_ = IniLineAt(text_, begin_);
  next_ = begin_ + line_.size() + 1;
  if (next_ < text_.size() && text_[next_ - 1] == '\r' && text_[next_] == '\n') ++next_;
  ++number_;
  return true;
}

}  // namespace scourwell::refc
