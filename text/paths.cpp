// SPDX-License-Identifier: MIT
#include "text/paths.h"

#include <algorithm>

#include "text/text.h"
#include "text/unicode.h"

namespace scourwell {
namespace {

// No name of a file holds one; ":" only stands behind a drive's letter.
bool HasForbidden(std::string_view path) {
  constexpr std::string_view kForbidden = "*?/\"<>|";
  return path.find(':', 2) != path.npos || std::ranges::any_of(path, [&](char c) {
           return static_cast<unsigned char>(c) < 32 || kForbidden.find(c) != kForbidden.npos;
         });
}

// False for bytes of no character and for pairs in two pieces: the system would read another text.
bool ReadsAsItIsSpelled(std::string_view path) {
  return IsAscii(path) || FromUtf16(ToUtf16(path)) == path;
}

}  // namespace

std::size_t PartEnd(std::string_view path, std::size_t from) {
  return std::min(FindSeparator(path, from), path.size());
}

std::string AddPathToFileName(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (!EndsInSeparator(path)) path += kSeparator;
  return path.append(name);
}

std::string_view FileNamePart(std::string_view path) {
  const std::size_t slash = path.rfind(kSeparator);
  return slash == path.npos ? path : path.substr(slash + 1);
}

std::string_view FolderPart(std::string_view path) {
  const std::size_t slash = path.rfind(kSeparator);
  return slash == path.npos ? std::string_view() : path.substr(0, slash);
}

std::string_view FirstPart(std::string_view path) { return path.substr(0, PartEnd(path)); }

std::string_view BehindFirstPart(std::string_view path) {
  return path.substr(std::min(PartEnd(path) + 1, path.size()));
}

std::string_view TakePart(std::string_view* path) {
  const std::string_view part = FirstPart(*path);
  *path = BehindFirstPart(*path);
  return part;
}

std::string_view TakeTypedPart(std::string_view* path) {
  constexpr std::string_view kSeparators = "\\/";
  const std::size_t end = std::min(path->find_first_of(kSeparators), path->size());
  const std::string_view part = path->substr(0, end);
  path->remove_prefix(end);
  path->remove_prefix(std::min(path->find_first_not_of(kSeparators), path->size()));
  return part;
}

std::string_view WithoutEndSeparators(std::string_view path) {
  while (path.size() > 3 && EndsInSeparator(path)) path.remove_suffix(1);
  return path;
}

bool IsAbsolutePath(std::string_view path) {
  const auto is_letter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
  if (path.size() >= 3 && is_letter(path[0]) && path[1] == ':' && path[2] == kSeparator) {
    return true;
  }
  return path.size() >= 5 && path.starts_with("\\\\") && path[2] != kSeparator && path[2] != '.' &&
         path[2] != '?';
}

std::size_t RootSize(std::string_view path) {
  if (!path.starts_with("\\\\")) return 3;
  const std::size_t share = FindSeparator(path, 2);
  const std::size_t end = share == path.npos ? path.npos : FindSeparator(path, share + 1);
  return end == path.npos ? path.npos : end + 1;
}

bool IsAtOrBelow(std::string_view inner, std::string_view outer) {
  if (outer.empty()) return false;
  const std::size_t size = PrefixNoCase(inner, outer);
  if (size == inner.npos) return false;
  return size == inner.size() || inner[size] == kSeparator || EndsInSeparator(outer);
}

bool IsPossibleName(std::string_view name) {
  return !name.empty() && !HoldsSeparator(name) && IsExactPath("C:\\" + std::string(name));
}

bool IsDeviceName(std::string_view name) {
  constexpr const char* kDevices[] = {"CON", "PRN", "AUX", "NUL", "CLOCK$", "CONIN$", "CONOUT$"};
  name = TrimBlanks(name.substr(0, name.find('.')));
  for (const char* device : kDevices) {
    if (EqualsNoCase(name, device)) return true;
  }
  if (!StartsWithNoCase(name, "COM") && !StartsWithNoCase(name, "LPT")) return false;
  const std::string_view number = name.substr(3);
  // The raised digits count, too.
  return (number.size() == 1 && number[0] >= '0' && number[0] <= '9') || number == "\xC2\xB9" ||
         number == "\xC2\xB2" || number == "\xC2\xB3";
}

bool IsPlainPath(std::string_view path) {
  if (!IsAbsolutePath(path) || HasForbidden(path)) return false;
  while (!path.empty()) {
    const std::string_view part = TakePart(&path);
    // Windows drops dots and blanks at the end of a part: dots alone lead elsewhere.
    const bool empty = part.find_first_not_of(". ") == std::string_view::npos;
    if ((empty && !part.empty()) || IsDeviceName(part)) return false;
  }
  return true;
}

bool IsExactPath(std::string_view path) {
  if (!IsAbsolutePath(path) || HasForbidden(path) || !ReadsAsItIsSpelled(path)) return false;
  const std::size_t root = RootSize(path);
  if (root >= path.size()) return true;
  path.remove_prefix(root);
  if (EndsInSeparator(path)) return false;
  while (!path.empty()) {
    const std::string_view part = TakePart(&path);
    if (part.empty() || part == "." || part == "..") return false;
  }
  return true;
}

std::string PlainImagePath(std::string_view path, std::string_view windows_folder) {
  constexpr std::string_view kSystemRoot = "\\SystemRoot\\";
  for (const std::string_view prefix : {"\\??\\", "\\\\?\\"}) {
    if (path.starts_with(prefix) && IsAbsolutePath(path.substr(prefix.size()))) {
      return std::string(path.substr(prefix.size()));
    }
  }
  const std::size_t root = PrefixNoCase(path, kSystemRoot);
  if (root == path.npos) return std::string(path);
  return AddPathToFileName(windows_folder, path.substr(root));
}

}  // namespace scourwell
