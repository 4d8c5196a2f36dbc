#pragma once

#include <windows.h>

#include <string>

namespace scourwell {

// A message box with OK, owned by the active window. `icon`: MB_ICON...
inline void ShowMessage(const std::string& text, const std::string& title,
                        UINT icon = MB_ICONINFORMATION) {
  MessageBoxA(GetActiveWindow(), text.c_str(), title.c_str(), MB_OK | icon);
}

// Yes or No; closing the box means No.
inline bool AskYesNo(const std::string& text, const std::string& title,
                     UINT icon = MB_ICONQUESTION) {
  return MessageBoxA(GetActiveWindow(), text.c_str(), title.c_str(), MB_YESNO | icon) == IDYES;
}

// OK or Cancel.
inline bool AskOkCancel(const std::string& text, const std::string& title) {
  return MessageBoxA(GetActiveWindow(), text.c_str(), title.c_str(),
                     MB_OKCANCEL | MB_ICONQUESTION) == IDOK;
}

// With OK and an icon of the program's own.
inline void ShowMessageWithIcon(HINSTANCE instance, int icon, const std::string& text,
                                const std::string& title) {
  MSGBOXPARAMSA box = {};
  box.cbSize = sizeof box;
  box.hwndOwner = GetActiveWindow();
  box.hInstance = instance;
  box.lpszText = text.c_str();
  box.lpszCaption = title.c_str();
  box.dwStyle = MB_OK | MB_USERICON;
  box.lpszIcon = MAKEINTRESOURCEA(icon);
  MessageBoxIndirectA(&box);
}

}  // namespace scourwell
