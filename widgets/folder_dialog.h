#pragma once

#include <windows.h>

#include <string>

namespace scourwell {

// Lets the user pick a folder of the file system. Empty: cancelled.
std::string AskForFolder(HWND owner, const std::string& title);

}  // namespace scourwell
