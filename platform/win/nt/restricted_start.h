// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

namespace scourwell {

// Starts a process of this user that has neither an administrator's rights nor privileges, with our
// inheritable handles. Windows NT 4 knows no such thing: there it has what we have.
bool StartRestricted(const wchar_t* program, wchar_t* command_line, STARTUPINFOW* startup,
                     PROCESS_INFORMATION* process);

}  // namespace scourwell
