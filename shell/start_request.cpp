// SPDX-License-Identifier: MIT
#include "shell/start_request.h"

#include <algorithm>
#include <utility>

#include "text/paths.h"
#include "text/unicode.h"

namespace scourwell {
namespace {

struct Sign {
  CommandLine::Kind kind;
  char sign;
};

constexpr Sign kSigns[] = {
    {CommandLine::Kind::Normal, 'N'},
    {CommandLine::Kind::StartScan, 'S'},
    {CommandLine::Kind::ScanPath, 'P'},
};

constexpr std::size_t kLongestPath = 3 * 32767;  // three bytes for each unit of the system

bool IsScannable(std::string_view path) {
  return path.size() <= kLongestPath && IsWellFormed(path) && IsExactPath(path);
}

// A drive is above its folders, though its root ends in a separator.
bool Covers(std::string_view outer, std::string_view inner) {
  if (EndsInSeparator(outer)) outer.remove_suffix(1);
  if (EndsInSeparator(inner)) inner.remove_suffix(1);
  return IsAtOrBelow(inner, outer);
}

}  // namespace

std::string PackRequest(const CommandLine& command) {
  const Sign* sign = std::find_if(std::begin(kSigns), std::end(kSigns),
                                  [&](const Sign& row) { return row.kind == command.kind; });
  return sign->sign + command.path + '\0';
}

std::optional<CommandLine> UnpackRequest(std::string_view bytes) {
  if (bytes.size() < 2 || bytes.find('\0') != bytes.size() - 1) return std::nullopt;
  const std::string_view path = bytes.substr(1, bytes.size() - 2);
  for (const Sign& row : kSigns) {
    if (row.sign != bytes.front()) continue;
    const bool wants_path = row.kind == CommandLine::Kind::ScanPath;
    if (wants_path ? !IsScannable(path) : !path.empty()) return std::nullopt;
    return CommandLine{row.kind, std::string(path)};
  }
  return std::nullopt;
}

void WantedScans::Add(const CommandLine& command) {
  if (command.kind == CommandLine::Kind::StartScan) everything_ = true;
  if (command.kind == CommandLine::Kind::ScanPath) AddPath(command.path);
}

void WantedScans::AddPath(const std::string& path) {
  const auto covers_it = [&](const std::string& other) { return Covers(other, path); };
  if (std::any_of(paths_.begin(), paths_.end(), covers_it)) return;
  std::erase_if(paths_, [&](const std::string& other) { return Covers(path, other); });
  paths_.push_back(path);
}

bool WantedScans::TakeEverything() { return std::exchange(everything_, false); }

std::vector<std::string> WantedScans::TakePaths() { return std::exchange(paths_, {}); }

}  // namespace scourwell
