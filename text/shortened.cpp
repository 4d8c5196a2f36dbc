// SPDX-License-Identifier: MIT
#include "text/shortened.h"

#include "text/escaped.h"
#include "text/paths.h"
#include "text/unicode.h"

namespace scourwell {
namespace {

constexpr std::string_view kLeftOut = "...";
constexpr std::size_t kLongestEnding = 10;  // bytes: a dot, a long ending, some letters before it
// No screen shows more, and Windows 95 measures no text that is much longer.
constexpr std::size_t kLongestShown = 2000;  // bytes

// What the last part that tells something lies in. A standard value has no name of its own: its
// place ends in a separator, or in a remark behind that.
std::string_view FolderOfLastPart(std::string_view path) {
  std::string_view folder = FolderPart(path);
  while (!folder.empty()) {
    const std::string_view part = path.substr(folder.size() + 1);
    if (!part.empty() && part.front() != ' ' && part.front() != kSeparator) break;
    folder = FolderPart(folder);
  }
  return folder;
}

// As much of the head as fits before what is left out and the ending.
std::string WithHead(std::string_view head, std::string_view ending,
                     const std::function<bool(const std::string& text)>& fits) {
  const auto joined = [&](std::size_t size) {
    return std::string(WholeCharacters(head, size)).append(kLeftOut).append(ending);
  };
  std::size_t fitting = 0;
  std::size_t too_long = head.size() + 1;
  while (too_long - fitting > 1) {
    const std::size_t middle = fitting + (too_long - fitting) / 2;
    (fits(joined(middle)) ? fitting : too_long) = middle;
  }
  return joined(fitting);
}

}  // namespace

std::string ShortenedPath(std::string_view path,
                          const std::function<bool(const std::string& text)>& fits) {
  const std::string shown = ForShowing(path);
  const auto may_stay = [&](const std::string& text) {
    return text.size() <= kLongestShown && fits(text);
  };
  if (may_stay(shown)) return shown;
  const std::string_view whole = shown;
  const std::string_view folder = FolderOfLastPart(whole);
  if (const std::string_view last = whole.substr(folder.size());
      !folder.empty() && may_stay(std::string(kLeftOut).append(last))) {
    return WithHead(folder, last, may_stay);
  }
  const std::string_view name = folder.empty() ? whole : whole.substr(folder.size() + 1);
  if (std::string alone(name); may_stay(alone)) return alone;
  const std::string_view head =
      WholeCharacters(name, name.size() < kLongestEnding ? 0 : name.size() - kLongestEnding);
  return WithHead(head, name.substr(head.size()), may_stay);
}

}  // namespace scourwell
