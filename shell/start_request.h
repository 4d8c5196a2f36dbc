// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/command_line.h"

namespace scourwell {

// What a second start of the program asks of the one that runs: a sign for the kind, the path in
// UTF-8, a NUL. Code pages have no part in it: the two may even see different ones.
std::string PackRequest(const CommandLine& command);
// Anybody in the session can send anything: what comes back is a request that PackRequest could
// have made, with a path that names one place.
std::optional<CommandLine> UnpackRequest(std::string_view bytes);

// The scans that were asked for and have not begun. Explorer starts the program once for each
// folder that was chosen; together they get one scan.
class WantedScans {
 public:
  void Add(const CommandLine& command);
  bool HasPaths() const { return !paths_.empty(); }

  // What is ticked is to be scanned; that has been asked for then.
  bool TakeEverything();
  // None lies below another.
  std::vector<std::string> TakePaths();

 private:
  void AddPath(const std::string& path);

  bool everything_ = false;
  std::vector<std::string> paths_;
};

}  // namespace scourwell
