// SPDX-License-Identifier: MIT
#include <algorithm>

#include "platform/win/native_text.h"
#include "platform/win/terminal_calls.h"

namespace scourwell {

bool NtWriteConsole(HANDLE console, std::string_view text) {
  constexpr std::size_t kAtOnce = 8 * 1024;  // a console refuses more than its heap has room for
  const std::wstring wide = Wide(text);
  for (std::size_t at = 0; at < wide.size();) {
    DWORD written = 0;
    const auto count = static_cast<DWORD>(std::min(wide.size() - at, kAtOnce));
    if (!WriteConsoleW(console, wide.data() + at, count, &written, nullptr)) return false;
    at += count;
  }
  return true;
}

}  // namespace scourwell
