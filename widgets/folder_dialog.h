// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <string>

namespace scourwell {

// Lets the user pick a folder of the file system. Empty: cancelled. `first` is selected at first,
// if it is there.
std::string AskForFolder(HWND owner, const std::string& title, const std::string& first = {});

}  // namespace scourwell
