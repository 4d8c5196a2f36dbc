// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace scourwell {

enum class FileDialog { Open, Save };

// The system's file dialog. `filter` has its names and patterns between "|"; a saved file without
// extension gets `extension`. An empty title is the system's own; `name` is proposed. Empty when
// the user cancels.
std::string AskForFile(HWND owner, FileDialog kind, const std::string& filter,
                       const char* extension, const std::string& title = {},
                       const std::string& name = {});

// Puts a text on the clipboard; false when that is in use.
bool CopyText(HWND owner, const std::string& text);

// The paths that WM_DROPFILES brings, whose parameter ends here.
std::vector<std::string> TakeDropped(WPARAM drop);

}  // namespace scourwell
