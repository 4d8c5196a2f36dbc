#include "platform/win/w9x/reachable_path.h"

#include <windows.h>

#include <algorithm>

#include "platform/file_utils.h"
#include "platform/win/native_text.h"

namespace scourwell {
namespace {

bool IsWildcard(std::string_view part) { return part.find_first_of("*?") != part.npos; }

// The system cuts off dots and blanks; only the pattern of a listing may end in them.
bool ReadsAsItStands(std::string_view part) {
  if (part.empty() || IsWildcard(part)) return true;
  return part.back() != '.' && part.back() != ' ' && !IsDeviceName(part);
}

bool ReadAsTheyStand(std::string_view parts) {
  while (!parts.empty()) {
    if (!ReadsAsItStands(TakeTypedPart(&parts))) return false;
  }
  return true;
}

// Replaces the longest folder that the calls can take by its 8.3 form; empty where that is no help.
std::string Shortened(const std::string& path) {
  const std::size_t end = FolderPart(std::string_view(path).substr(0, kLongestPath9x + 1)).size();
  if (end <= 3) return {};
  const std::optional<std::string> folder = ExactNarrow(path.substr(0, end));
  char buffer[MAX_PATH];
  const DWORD size = folder ? GetShortPathNameA(folder->c_str(), buffer, sizeof buffer) : 0;
  if (size == 0 || size >= sizeof buffer || size >= end) return {};
  return FromNarrow(std::string_view(buffer, size)) + path.substr(end);
}

}  // namespace

std::optional<std::string> ReachablePath(std::string_view path) {
  if (!IsAbsolutePath(path) || path.find('\0') != path.npos) return std::nullopt;
  if (!ReadAsTheyStand(path.substr(path.starts_with("\\\\") ? 2 : 3))) return std::nullopt;
  std::string reachable(path);
  while (reachable.size() > kLongestPath9x) {
    std::string shorter = Shortened(reachable);
    if (shorter.empty()) return std::nullopt;
    reachable = std::move(shorter);
  }
  return ExactNarrow(reachable);
}

}  // namespace scourwell
