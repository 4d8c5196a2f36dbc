// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win/window_calls.h"
#include "text/escaped.h"

namespace scourwell {

// Texts may hold names: what cannot be seen is shown escaped.

// A message box with OK, owned by the active window. `icon`: MB_ICON...
inline void ShowMessage(const std::string& text, const std::string& title,
                        UINT icon = MB_ICONINFORMATION) {
  Calls().Ask({GetActiveWindow(), MessageForShowing(text), title, MB_OK | icon});
}

// Yes or No; closing the box means No.
inline bool AskYesNo(const std::string& text, const std::string& title,
                     UINT icon = MB_ICONQUESTION) {
  return Calls().Ask({GetActiveWindow(), MessageForShowing(text), title, MB_YESNO | icon}) == IDYES;
}

// OK or Cancel.
inline bool AskOkCancel(const std::string& text, const std::string& title,
                        UINT icon = MB_ICONQUESTION) {
  return Calls().Ask({GetActiveWindow(), MessageForShowing(text), title, MB_OKCANCEL | icon}) ==
         IDOK;
}

// With the icon of a question about what cannot be undone: Enter alone means No, or Cancel.
inline constexpr UINT kBeforeLoss = MB_ICONWARNING | MB_DEFBUTTON2;

}  // namespace scourwell
