// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win/window_calls.h"
#include "widgets/area.h"
#include "widgets/window_env.h"

namespace scourwell {

// A window class of ours. The one static procedure finds the object, and one switch calls its
// handlers; nothing that they throw leaves the procedure.
class Window {
 public:
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  virtual ~Window();

  HWND hwnd() const { return hwnd_; }
  void Show(bool shown) const { ShowWindow(hwnd_, shown ? SW_SHOWNA : SW_HIDE); }
  bool Shown() const { return (Calls().Long(hwnd_, GWL_STYLE) & WS_VISIBLE) != 0; }
  Area ClientArea() const;
  // What F1 asks about: the name of the window, or of what it shows.
  virtual const char* HelpTopic() const { return name_; }
  // The window of the desktop that this one lies in.
  HWND Root() const;

 protected:
  // `name` is the class name and the name in error records.
  Window(const WindowEnv& env, const char* name) : env_(env), name_(name) {}

  struct Frame {
    HWND parent = nullptr;
    DWORD style = 0;
    DWORD ex_style = 0;
    INT_PTR id_or_menu = 0;
    Area place;
    std::string title;
  };
  // Throws when the system refuses.
  void CreateHandle(const Frame& frame);

  virtual LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam);
  // What the system does with a message.
  virtual LRESULT Default(UINT message, WPARAM wparam, LPARAM lparam);
  virtual void OnCreate() {}
  virtual void OnSize(Area) {}
  // A button, a menu entry or an accelerator. Returns whether it was one of ours.
  virtual bool OnCommand(int) { return false; }
  virtual LRESULT OnNotify(NMHDR*) { return 0; }
  virtual void OnTimer(UINT_PTR) {}
  virtual void OnPaint(HDC) {}
  // The system colour behind the labels.
  virtual int BackColour() const { return COLOR_BTNFACE; }

  const Metrics& metrics() const { return env_.metrics; }
  std::string Text(Caption caption) const { return env_.Text(caption); }

  const WindowEnv& env_;

 private:
  static LRESULT CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam);
  void Register() const;
  void Paint();
  void DrawItem(WPARAM wparam, LPARAM lparam);
  LRESULT ColourLabel(HDC dc) const;

  const char* name_;
  HWND hwnd_ = nullptr;
};

}  // namespace scourwell
