// SPDX-License-Identifier: MIT
#include "machine/restart_lists.h"

#include <algorithm>

#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr std::string_view kHeader = "[Rename]";
constexpr std::string_view kLineBreak = "\r\n";

// The position behind "[Rename]" at the start of a line, or npos.
std::size_t BehindRenameHeader(std::string_view text) {
  for (std::size_t at = 0; (at = FindNoCase(text, kHeader, at)) != text.npos; ++at) {
    if (at == 0 || text[at - 1] == '\n' || text[at - 1] == '\r') return at + kHeader.size();
  }
  return text.npos;
}

// Takes the next text and its NUL off the front. False when no NUL is left.
bool TakeText(std::string_view* list, std::string_view* text) {
  const std::size_t end = list->find('\0');
  if (end == list->npos) return false;
  *text = list->substr(0, end);
  list->remove_prefix(end + 1);
  return true;
}

// Newer systems put "*1" or another digit before the path.
std::string PathOfMove(std::string_view source) {
  if (source.size() > 2 && source[0] == '*') source.remove_prefix(2);
  return PlainImagePath(source, {});
}

// The path of a line that deletes something; empty for every other one.
std::string_view PathOfLine(std::string_view line) {
  for (const std::string_view key : {"NUL", "DIRNUL"}) {
    const std::size_t equals = line.find('=');
    if (equals == line.npos) return {};
    if (EqualsNoCase(TrimBlanks(line.substr(0, equals)), key)) {
      return TrimBlanks(line.substr(equals + 1));
    }
  }
  return {};
}

}  // namespace

std::string WithoutMoves(std::string_view list, const TakeOut& take_out) {
  std::string kept;
  std::string_view source;
  std::string_view target;
  bool any = false;
  for (;;) {
    const std::string_view before = list;
    if (!TakeText(&list, &source) || source.empty() || !TakeText(&list, &target)) {
      return any ? kept.append(before) : std::string();
    }
    if (target.empty() && take_out(PathOfMove(source))) continue;
    any = true;
    kept.append(before.substr(0, before.size() - list.size()));
  }
}

std::string WithRenameEntry(std::string_view text, const std::string& entry) {
  const std::size_t at = BehindRenameHeader(text);
  std::string result;
  if (at == text.npos) {
    result.append(kHeader).append(kLineBreak).append(entry).append(kLineBreak).append(text);
    return result;
  }
  const std::string_view rest = text.substr(at);
  result.append(text.substr(0, at)).append(kLineBreak).append(entry).append(kLineBreak);
  return result.append(rest.starts_with(kLineBreak) ? rest.substr(2) : rest);
}

std::string WithoutRenameEntries(std::string_view text, const TakeOut& take_out) {
  const std::size_t behind = BehindRenameHeader(text);
  if (behind == text.npos) return std::string(text);
  std::string kept(text.substr(0, behind));
  bool below = true;
  for (text.remove_prefix(behind); !text.empty();) {
    const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end);
    below = below && !line.starts_with('[');
    std::string_view plain = line;
    while (plain.ends_with('\n') || plain.ends_with('\r')) plain.remove_suffix(1);
    const std::string_view path = below ? PathOfLine(plain) : std::string_view();
    if (path.empty() || !take_out(std::string(path))) kept.append(line);
  }
  return kept;
}

}  // namespace scourwell
