// SPDX-License-Identifier: MIT
#include "text/shortened.h"

#include "text/paths.h"

namespace scourwell {
namespace {

constexpr std::string_view kLeftOut = "...";
constexpr std::size_t kLongestEnding = 10;  // bytes: a dot, a long ending, some letters before it

// The position itself, or the begin of the letter that it would cut in two.
std::size_t LetterBegin(std::string_view text, std::size_t at) {
  while (at > 0 && at < text.size() && (text[at] & 0xC0) == 0x80) --at;
  return at;
}

// As much of the head as fits before what is left out and the ending.
std::string WithHead(std::string_view head, std::string_view ending,
                     const std::function<bool(const std::string& text)>& fits) {
  const auto joined = [&](std::size_t size) {
    return std::string(head.substr(0, LetterBegin(head, size))).append(kLeftOut).append(ending);
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
  if (std::string whole(path); fits(whole)) return whole;
  const std::string_view folder = FolderPart(path);
  if (const std::string_view last = path.substr(folder.size());
      !folder.empty() && fits(std::string(kLeftOut).append(last))) {
    return WithHead(folder, last, fits);
  }
  const std::string_view name = FileNamePart(path);
  if (std::string alone(name); fits(alone)) return alone;
  const std::size_t ending =
      LetterBegin(name, name.size() < kLongestEnding ? 0 : name.size() - kLongestEnding);
  return WithHead(name.substr(0, ending), name.substr(ending), fits);
}

}  // namespace scourwell
