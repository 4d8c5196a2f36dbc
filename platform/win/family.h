// SPDX-License-Identifier: MIT
#pragma once

namespace scourwell {

// True on Windows NT, 2000, XP and later, whose wide functions work; false on Windows 95, 98 and
// Me, which export most of them as stubs that only fail. Asked for once, by trying one: a program
// that runs in a compatibility mode is lied to about the version of Windows, not about this.
bool HasWideCalls();

}  // namespace scourwell
