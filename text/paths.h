// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace scourwell {

// Paths of files and of registry keys: parts with "\" between them. Nobody else looks for that
// character. Texts are UTF-8, in which it is never half of another.

inline constexpr char kSeparator = '\\';

// The position of the next separator from `from` on, or npos.
inline std::size_t FindSeparator(std::string_view path, std::size_t from = 0) {
  return path.find(kSeparator, from);
}
// The same, or the end of the path.
std::size_t PartEnd(std::string_view path, std::size_t from = 0);
inline bool HoldsSeparator(std::string_view text) {
  return FindSeparator(text) != std::string_view::npos;
}
inline bool BeginsWithSeparator(std::string_view path) { return path.starts_with(kSeparator); }
inline bool EndsInSeparator(std::string_view path) { return path.ends_with(kSeparator); }

// folder + "\" (unless the folder ends in one) + name.
std::string AddPathToFileName(std::string_view folder, std::string_view name);
// What follows the last "\"; the whole text when there is none.
std::string_view FileNamePart(std::string_view path);
// What stands before the last "\"; empty when there is none.
std::string_view FolderPart(std::string_view path);
// What stands before the first "\"; the whole text when there is none.
std::string_view FirstPart(std::string_view path);
// What follows the first "\"; empty when there is none.
std::string_view BehindFirstPart(std::string_view path);
// Takes the first part and the separator behind it off the front.
std::string_view TakePart(std::string_view* path);
// The same of a path as people and programs type it: "/" parts too, and several count as one.
std::string_view TakeTypedPart(std::string_view* path);
// The path without the separators at its end; a drive's root keeps its own.
std::string_view WithoutEndSeparators(std::string_view path);
// The path of a process's image, which the NT family names in its own way for what starts before
// the first logon: "\SystemRoot\System32\smss.exe", "\??\C:\WINDOWS\...".
std::string PlainImagePath(std::string_view path, std::string_view windows_folder);

// True for "X:\..." and "\\server\share...".
bool IsAbsolutePath(std::string_view path);
// Where the root of an absolute path ends: behind "X:\" or "\\server\share\"; npos for a bare
// share.
std::size_t RootSize(std::string_view path);
// True for `inner` itself and everything below it; without case, neither ends in "\".
bool IsAtOrBelow(std::string_view inner, std::string_view outer);

// True for what a single file or folder can be called.
bool IsPossibleName(std::string_view name);
// True for the names that every folder answers to: "NUL", "COM1.TXT" and their like.
bool IsDeviceName(std::string_view name);
// True when a path from a definition may be looked up as it is: absolute, printable, without
// wildcards, device names and "." and ".." parts.
bool IsPlainPath(std::string_view path);
// True when a path names one place on the NT family, however odd its names: absolute, without
// empty, "." and ".." parts, without characters that no name there has, and spelled as the name
// that is listed.
bool IsExactPath(std::string_view path);

}  // namespace scourwell
