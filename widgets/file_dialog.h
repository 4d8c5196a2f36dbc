#pragma once

#include <windows.h>

#include <string>

namespace scourwell {

enum class FileDialog { Open, Save };

// The system's file dialog. `filter` has its names and patterns between "|"; a saved file without
// extension gets `extension`. Empty when the user cancels.
std::string AskForFile(HWND owner, FileDialog kind, const std::string& filter,
                       const char* extension);

// Puts a text on the clipboard; false when that is in use.
bool CopyText(HWND owner, const std::string& text);

}  // namespace scourwell
