// SPDX-License-Identifier: MIT
#include "platform/win/program_win.h"

#include <windows.h>

#include "platform/win/native_text.h"
#include "platform/win/system_calls.h"
#include "text/paths.h"

namespace scourwell {

// The wide command line is real on Windows 95, 98 and Me, too.
std::string CommandArguments() {
  std::wstring_view line = GetCommandLineW();
  const bool quoted = !line.empty() && line.front() == L'"';
  const std::size_t end = quoted ? line.find(L'"', 1) : line.find_first_of(L" \t");
  if (end == line.npos) return {};
  line.remove_prefix(quoted ? end + 1 : end);
  const std::size_t start = line.find_first_not_of(L" \t");
  return start == line.npos ? std::string() : FromWide(line.substr(start));
}

std::string ProgramFolder() {
  const std::string path = RunningSystemCalls().OwnPath();
  const std::string folder(FolderPart(path));
  return folder.size() == 2 ? folder + "\\" : folder;  // a drive root keeps its backslash
}

}  // namespace scourwell
