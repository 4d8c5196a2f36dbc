#pragma once

#include "widgets/control.h"

namespace scourwell {

// One line of text to type in.
class TextField : public Control {
 public:
  void Create(const WindowEnv& env, HWND parent, int id, const std::string& text = {}) {
    CreateHandle(env, parent, "EDIT", WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, id, text);
  }
  void Limit(int characters) const { Send(EM_LIMITTEXT, static_cast<WPARAM>(characters)); }
  void SelectAll() const { Send(EM_SETSEL, 0, -1); }
};

}  // namespace scourwell
