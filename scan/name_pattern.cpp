// SPDX-License-Identifier: MIT
#include "scan/name_pattern.h"

#include "text/paths.h"

namespace scourwell {
namespace {

bool IsWildcard(char c) { return c == '*' || c == '?'; }

// Windows drops dots and blanks at the end of a name before it looks it up.
std::string_view WithoutTail(std::string_view name) {
  while (!name.empty() && (name.back() == '.' || name.back() == ' ')) name.remove_suffix(1);
  return name;
}

// True when a name may end before this rest of a pattern: "*", "?" and the dots between them.
bool MayBeEmpty(std::string_view rest) {
  return rest.find_first_not_of("*?.") == std::string_view::npos;
}

// Blanks and dots alone name a folder itself; some characters have a meaning of their own below
// the listing call; device names answer in every folder.
bool IsUsablePart(std::string_view part) {
  constexpr std::string_view kForbidden = "<>\"|:/";
  for (const char c : part) {
    if (static_cast<unsigned char>(c) < 32 || kForbidden.find(c) != std::string_view::npos) {
      return false;
    }
  }
  return !WithoutTail(part).empty() && !IsDeviceName(part);
}

}  // namespace

std::string NormalizeSignature(std::string_view signature) {
  std::string result;
  for (bool last = false; !last;) {
    last = !HoldsSeparator(signature);
    std::string_view part = TakePart(&signature);
    // Dots alone name the folder itself or its parent: they stay, to be refused. Behind a wildcard
    // they have a meaning of their own.
    const bool wild = part.find_first_of("*?") != part.npos;
    if (const std::string_view bare = WithoutTail(part); !bare.empty() && !(last && wild)) {
      part = bare;
    }
    result += part;
    if (!last && !part.empty()) result += kSeparator;
  }
  return result;
}

PatternKind ClassifyPattern(std::string_view signature) {
  bool relative = false;
  for (std::string_view rest = signature;;) {
    const bool last = !HoldsSeparator(rest);
    const std::string_view part = TakePart(&rest);
    if (!IsUsablePart(part)) return PatternKind::Unusable;
    const bool wild = part.find_first_of("*?") != std::string_view::npos;
    if (last) {
      if (relative) return PatternKind::Relative;
      // What names nothing at all would find, and delete, everything on every drive.
      if (wild && part.find_first_not_of("*?. ") == part.npos) return PatternKind::Unusable;
      return wild ? PatternKind::Wildcard : PatternKind::Name;
    }
    if (wild) return PatternKind::Unusable;  // no listing takes wildcards before the last part
    relative = true;
  }
}

bool MayMatch(std::string_view pattern, std::string_view name) {
  pattern = WithoutTail(pattern);
  name = WithoutTail(name);
  // "?" may stand for one character or for none: treating it as "*" admits both.
  constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::size_t p = 0;
  std::size_t n = 0;
  std::size_t behind_star = kNone;
  std::size_t star_name = 0;  // how far the last "*" reaches
  for (;;) {
    if (p < pattern.size() && IsWildcard(pattern[p])) {
      behind_star = ++p;
      star_name = n;
    } else if (n == name.size()) {
      return MayBeEmpty(pattern.substr(p));
    } else if (p < pattern.size() && pattern[p] == name[n]) {
      ++p;
      ++n;
    } else if (behind_star == kNone) {
      return false;
    } else {
      p = behind_star;
      n = ++star_name;
    }
  }
}

std::string_view RequiredLiteral(std::string_view pattern) {
  pattern = WithoutTail(pattern);
  std::string_view best;
  for (std::size_t at = 0; at < pattern.size();) {
    if (IsWildcard(pattern[at])) {
      ++at;
      continue;
    }
    std::size_t end = at;
    while (end < pattern.size() && !IsWildcard(pattern[end])) ++end;
    std::string_view run = pattern.substr(at, end - at);
    // Dots before a closing run of wildcards may be absent from the name.
    if (MayBeEmpty(pattern.substr(end))) run = WithoutTail(run);
    if (run.size() > best.size()) best = run;
    at = end;
  }
  return best;
}

}  // namespace scourwell
