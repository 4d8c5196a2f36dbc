// SPDX-License-Identifier: MIT
#include "platform/win/native_text.h"
#include "platform/win/terminal_calls.h"

namespace scourwell {

bool W9xWriteConsole(HANDLE console, std::string_view text) {
  std::string bytes = Narrow(text);
  if (!bytes.empty()) {
    CharToOemBuffA(bytes.data(), bytes.data(), static_cast<DWORD>(bytes.size()));
  }
  return WriteBytes(console, bytes);
}

}  // namespace scourwell
