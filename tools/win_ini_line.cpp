// SPDX-License-Identifier: MIT
#include "tools/win_ini_line.h"

#include <algorithm>

namespace scourwell {
namespace {

bool IsGap(char c) { return c == ' ' || c == ',' || c == '\t'; }

bool HasOpenQuote(std::string_view program) { return std::ranges::count(program, '"') % 2 != 0; }

}  // namespace

WinIniLine::WinIniLine(std::string_view text) {
  std::string gap;
  for (std::size_t at = 0; at < text.size();) {
    if (IsGap(text[at])) {
      gap += text[at++];
      continue;
    }
    const std::size_t begin = at;
    // An open quote runs to the end of the line.
    for (bool quoted = false; at < text.size() && (quoted || !IsGap(text[at])); ++at) {
      if (text[at] == '"') quoted = !quoted;
    }
    programs_.emplace_back(text.substr(begin, at - begin));
    gaps_.push_back(std::move(gap));
    gap.clear();
  }
  gaps_.push_back(std::move(gap));
}

// With a program goes the gap before it; with the first ones, the gap behind them.
std::string WinIniLine::Kept(const std::vector<bool>& keep) const {
  std::string line;
  bool first = true;
  for (std::size_t i = 0; i < programs_.size(); ++i) {
    if (!keep[i]) continue;
    line += (first ? gaps_[0] : gaps_[i]) + programs_[i];
    first = false;
  }
  if (first && !programs_.empty()) return {};
  return line + gaps_.back();
}

// Of programs that read alike, the gap before them tells which one is left.
std::optional<std::vector<bool>> WinIniLine::FindKept(std::string_view line) const {
  const WinIniLine left(line);
  std::vector<bool> kept(programs_.size(), false);
  std::size_t next = 0;
  for (std::size_t i = 0; i < programs_.size() && next < left.programs_.size(); ++i) {
    if (programs_[i] != left.programs_[next]) continue;
    if (next > 0 && gaps_[i] != left.gaps_[next]) continue;
    kept[i] = true;
    ++next;
  }
  if (next != left.programs_.size() || Kept(kept) != line) return std::nullopt;
  return kept;
}

void WinIniLine::Append(std::string_view program) {
  const bool open = !programs_.empty() && HasOpenQuote(programs_.back());
  const std::size_t at = programs_.size() - (open ? 1 : 0);
  programs_.emplace(programs_.begin() + static_cast<std::ptrdiff_t>(at), program);
  if (programs_.size() == 1) {
    gaps_ = {"", ""};
  } else {
    // Before an open quote, its own gap goes to the new program.
    const std::size_t gap = open ? at + 1 : at;
    gaps_.insert(gaps_.begin() + static_cast<std::ptrdiff_t>(gap), " ");
  }
}

std::string WithoutProgram(std::string_view line, std::string_view program) {
  const WinIniLine parts(line);
  const auto& programs = parts.programs();
  const auto found = std::find(programs.begin(), programs.end(), program);
  if (found == programs.end()) return std::string(line);
  std::vector<bool> keep(programs.size(), true);
  keep[static_cast<std::size_t>(found - programs.begin())] = false;
  return parts.Kept(keep);
}

void WinIniLine::Replace(std::string_view program, std::string_view other) {
  const auto found = std::find(programs_.begin(), programs_.end(), program);
  if (found != programs_.end()) *found = other;
}

std::string WithOther(std::string_view line, std::string_view program, std::string_view other) {
  WinIniLine parts(line);
  parts.Replace(program, other);
  return parts.text();
}

std::string WithProgram(std::string_view line, std::string_view program,
                        std::string_view original) {
  const WinIniLine whole(original);
  if (auto kept = whole.FindKept(line)) {
    for (std::size_t i = 0; i < kept->size(); ++i) {
      if ((*kept)[i] || whole.programs()[i] != program) continue;
      (*kept)[i] = true;
      return whole.Kept(*kept);
    }
  }
  WinIniLine longer(line);
  longer.Append(program);
  return longer.text();
}

std::string AsProgram(const std::string& path) {
  const bool parts = std::any_of(path.begin(), path.end(), IsGap);
  return parts && path.find('"') == std::string::npos ? "\"" + path + "\"" : path;
}

}  // namespace scourwell
