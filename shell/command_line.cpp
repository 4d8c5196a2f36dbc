// SPDX-License-Identifier: MIT
#include "shell/command_line.h"

#include "text/paths.h"
#include "text/text.h"

namespace scourwell {

CommandLine ParseCommandLine(std::string_view text) {
  text = TrimBlanks(text);
  if (text.empty()) return {};
  if (FindNoCase(text, "/STARTUP") != std::string_view::npos) {
    return {CommandLine::Kind::StartScan, {}};
  }
  if (text.size() >= 2 && text.front() == '"' && text.back() == '"') {
    text = text.substr(1, text.size() - 2);
  }
  if (text.empty()) return {};
  // "C:\folder\" and "C:\folder" are the same folder; "C:\" keeps its backslash, "C:" gets one.
  text = WithoutEndSeparators(text);
  std::string path(text);
  if (path.size() == 2 && path[1] == ':') path += '\\';
  return {CommandLine::Kind::ScanPath, path};
}

}  // namespace scourwell
