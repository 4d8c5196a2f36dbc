// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <string_view>

namespace scourwell {

// Writes into any stream, as often as the system takes only a part. False when it takes no more.
bool WriteBytes(HANDLE stream, std::string_view bytes);

// A console of Windows NT, 2000, XP and later: every script.
bool NtWriteConsole(HANDLE console, std::string_view text);
// One of Windows 95, 98 and Me, which has a code page of its own.
bool W9xWriteConsole(HANDLE console, std::string_view text);

}  // namespace scourwell
