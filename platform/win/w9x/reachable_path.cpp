// SPDX-License-Identifier: MIT
#include "platform/win/w9x/reachable_path.h"

#include <windows.h>

#include <algorithm>

#include "platform/win/native_text.h"
#include "text/paths.h"

namespace scourwell {
namespace {

bool IsWildcard(std::string_view part) { return part.find_first_of("*?") != part.npos; }

// Only the pattern of a listing may end in dots.
bool ReadAsTheyStand(std::string_view parts) {
  while (!parts.empty()) {
    const std::string_view part = TakeTypedPart(&parts);
    if (!part.empty() && !IsWildcard(part) && !ReadsAsItStands(part)) return false;
  }
  return true;
}

// The longest folder on the way that the calls can take, in their bytes; *end is where it ends.
std::string LongestFolder(std::string_view path, std::size_t* end) {
  std::string longest;
  for (std::size_t slash = FindSeparator(path); slash != path.npos;
       slash = FindSeparator(path, slash + 1)) {
    std::optional<std::string> folder = ExactNarrow(path.substr(0, slash));
    if (!folder || folder->size() > kLongestPath9x) break;
    longest = std::move(*folder);
    *end = slash;
  }
  return longest;
}

// Replaces that folder by its 8.3 form; empty where that is no help. A text can have more bytes
// here than in the calls, and its 8.3 form, too: what counts are those of the calls.
std::string Shortened(const std::string& path) {
  std::size_t end = 0;
  const std::string folder = LongestFolder(path, &end);
  if (folder.size() <= 3) return {};
  char buffer[MAX_PATH];
  const DWORD size = GetShortPathNameA(folder.c_str(), buffer, sizeof buffer);
  if (size == 0 || size >= sizeof buffer || size >= folder.size()) return {};
  return FromNarrow(std::string_view(buffer, size)) + path.substr(end);
}

}  // namespace

bool ReadsAsItStands(std::string_view name) {
  return !name.ends_with('.') && !name.ends_with(' ') && !IsDeviceName(name);
}

std::optional<std::string> ReachablePath(std::string_view path) {
  if (!IsAbsolutePath(path) || path.find('\0') != path.npos) return std::nullopt;
  if (!ReadAsTheyStand(path.substr(path.starts_with("\\\\") ? 2 : 3))) return std::nullopt;
  std::string shorter(path);
  std::optional<std::string> reachable = ExactNarrow(shorter);
  while (reachable && reachable->size() > kLongestPath9x) {
    shorter = Shortened(shorter);
    if (shorter.empty()) return std::nullopt;
    reachable = ExactNarrow(shorter);
  }
  return reachable;
}

}  // namespace scourwell
