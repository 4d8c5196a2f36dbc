// SPDX-License-Identifier: MIT
#include "machine/real_path.h"

#include "text/paths.h"

namespace scourwell {

std::string RealPath(Files& files, const std::string& path) {
  const std::size_t root = RootSize(path);
  if (root >= path.size()) return path;
  std::string real = path.substr(0, root);
  for (std::size_t at = root; at < path.size();) {
    const std::size_t end = PartEnd(path, at);
    DirEntry entry;
    const bool known = files.Stat(path.substr(0, end), &entry).ok();
    if (at > root) real += kSeparator;
    real += known ? entry.name : path.substr(at, end - at);
    at = end + 1;
  }
  return real;
}

}  // namespace scourwell
