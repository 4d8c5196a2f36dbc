// SPDX-License-Identifier: MIT
#include "platform/win/code_pages_win.h"

#include <windows.h>

#include "platform/win/native_text.h"
#include "platform/win/win_error.h"
#include "text/unicode.h"

namespace scourwell {

unsigned CodePagesWin::System() { return GetACP(); }

Outcome CodePagesWin::Decode(unsigned code_page, std::string_view bytes, std::string* text) {
  // No byte of the system's own is lost.
  if (bytes.empty() || code_page == GetACP()) {
    *text = FromNarrow(bytes);
    return {};
  }
  const int size = static_cast<int>(bytes.size());
  const int needed = MultiByteToWideChar(code_page, 0, bytes.data(), size, nullptr, 0);
  if (needed <= 0) return FailedWith(GetLastError());
  std::wstring wide(static_cast<std::size_t>(needed), L'\0');
  if (MultiByteToWideChar(code_page, 0, bytes.data(), size, wide.data(), needed) <= 0) {
    return FailedWith(GetLastError());
  }
  *text = FromWide(wide);
  return {};
}

std::optional<std::string> CodePagesWin::Encode(std::string_view text) { return ExactNarrow(text); }

}  // namespace scourwell
