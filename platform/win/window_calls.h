// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <string>

namespace scourwell {

// Calls that pass no text: in the two families of Windows they differ in nothing but their names.
struct PlainCalls {
  decltype(&SendMessageW) Send;
  decltype(&PostMessageW) Post;
  decltype(&GetMessageW) Next;
  decltype(&PeekMessageW) Peek;
  decltype(&DispatchMessageW) Dispatch;
  decltype(&IsDialogMessageW) TakeDialogKey;
  decltype(&TranslateAcceleratorW) TakeAccelerator;
  decltype(&DefWindowProcW) WindowDefault;
  decltype(&DefFrameProcW) FrameDefault;
  decltype(&DefMDIChildProcW) PageDefault;
  decltype(&CallWindowProcW) CallProcedure;
  decltype(&GetWindowLongW) Long;
  decltype(&SetWindowLongW) SetLong;
  decltype(&SystemParametersInfoW) Parameter;
  decltype(&GetObjectW) Facts;  // of a GDI object that holds no text
  decltype(&SendMessageTimeoutW) SendFor;
};

struct NewClass {
  const char* name = nullptr;
  WNDPROC procedure = nullptr;
  HINSTANCE instance = nullptr;
  HICON icon = nullptr;
  HCURSOR cursor = nullptr;
  HBRUSH background = nullptr;
};

struct NewWindow {
  const char* window_class = nullptr;
  std::string text;
  DWORD style = 0;
  DWORD ex_style = 0;
  RECT place = {};
  HWND parent = nullptr;
  HMENU id_or_menu = nullptr;
  HINSTANCE instance = nullptr;
  void* parameter = nullptr;
};

struct NewBox {
  HWND owner = nullptr;
  std::string text;
  std::string title;
  UINT flags = 0;
};

// The size in pixels.
struct FontSize {
  int height = 0;
  int ascent = 0;
};

// The window calls of the family of Windows that runs: wide ones on Windows NT and its successors,
// where every letter can be shown and typed, ANSI ones on Windows 95, 98 and Me. Callers pass texts
// of the program and see no others.
class WindowCalls : public PlainCalls {
 public:
  explicit WindowCalls(const PlainCalls& plain) : PlainCalls(plain) {}
  WindowCalls(const WindowCalls&) = delete;
  WindowCalls& operator=(const WindowCalls&) = delete;
  virtual ~WindowCalls() = default;

  // NFR_UNICODE or NFR_ANSI: the form in which controls are to tell their parents.
  virtual LRESULT NotifyFormat() const = 0;
  // The longest path that the system takes, in its characters.
  virtual std::size_t LongestPath() const = 0;

  // A class that is there already stays as it is.
  virtual void Register(const NewClass& made) const = 0;
  virtual HWND Create(const NewWindow& made) const = 0;
  virtual void SetText(HWND window, const std::string& text) const = 0;
  virtual std::string Text(HWND window) const = 0;
  // Empty where there is no such window.
  virtual std::string ClassName(HWND window) const = 0;
  // A message whose last parameter is a text.
  virtual LRESULT SendText(HWND window, UINT message, WPARAM wparam,
                           const std::string& text) const = 0;
  // Shows a message box; returns the button.
  virtual int Ask(const NewBox& box) const = 0;
  virtual void Append(HMENU menu, UINT flags, UINT_PTR id, const std::string& text) const = 0;

  // Of the program by its number or, without an instance, of the system. Size 0: its own.
  virtual HANDLE Image(HINSTANCE instance, int number, UINT type, int size, UINT flags) const = 0;
  virtual HBITMAP Picture(const std::string& path) const = 0;
  virtual HACCEL Accelerators(HINSTANCE instance, int number) const = 0;

  // How many characters of the system a text is.
  virtual std::size_t CountOf(const std::string& text) const = 0;

  // The flags are those of DrawText.
  virtual void Draw(HDC dc, const std::string& text, RECT* area, UINT format) const = 0;
  virtual SIZE Extent(HDC dc, const std::string& text) const = 0;
  virtual FontSize SizeOfFont(HDC dc) const = 0;
  // The wide structure describes fonts of both families.
  virtual LOGFONTW MessageFont() const = 0;
  virtual LOGFONTW FixedFont() const = 0;
  virtual HFONT Font(const LOGFONTW& font) const = 0;
};

const WindowCalls& Calls();

}  // namespace scourwell
