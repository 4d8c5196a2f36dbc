// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/control.h"

namespace scourwell {

// A system control some of whose messages we handle first.
class SubclassedControl : public Control {
 public:
  // What a screen reader calls it, where nothing in it says so. Some readers take the window text,
  // others only what is annotated.
  void SetName(const std::string& name) {
    SetText(name);
    Annotate(name);
  }

 protected:
  virtual ~SubclassedControl() { Release(); }

  // The name alone, for a control that shows its window text.
  void Annotate(const std::string& name);
  // `name` stands in error records.
  void Subclass(const WindowEnv& env, const char* name);
  virtual LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    return Default(message, wparam, lparam);
  }
  // What the control itself does.
  LRESULT Default(UINT message, WPARAM wparam, LPARAM lparam) const {
    return Calls().CallProcedure(original_, hwnd(), message, wparam, lparam);
  }

 private:
  static LRESULT CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam);
  void Release();

  ErrorLog* log_ = nullptr;
  const char* name_ = nullptr;
  WNDPROC original_ = nullptr;
  bool named_ = false;
};

}  // namespace scourwell
