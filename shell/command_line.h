// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace scourwell {

// What the command line asks for.
struct CommandLine {
  enum class Kind { Normal, StartScan, ScanPath };
  Kind kind = Kind::Normal;
  std::string path;  // ScanPath: the text, without surrounding blanks and quotes
};

// Empty: a normal start. "/STARTUP" anywhere, in any case: scan at once. Anything else: the
// whole text is a file or folder to scan.
CommandLine ParseCommandLine(std::string_view text);

}  // namespace scourwell
