#pragma once

#include <windows.h>

#include <string>

namespace scourwell {

// Asks where to save a file; an existing one is asked about. Empty when the user cancelled.
// `kind` and `pattern`: what is listed, e.g. "Log files (*.txt)" and "*.txt"; `ending` is added to
// a name without one.
std::string AskForFileToSave(HWND owner, const std::string& title, const std::string& kind,
                             const std::string& pattern, const std::string& ending,
                             const std::string& name);

}  // namespace scourwell
