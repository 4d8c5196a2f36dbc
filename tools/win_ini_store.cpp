// SPDX-License-Identifier: MIT
#include "tools/win_ini_store.h"

#include <algorithm>

#include "machine/file_utils.h"
#include "text/ini_text.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr char kSection[] = "Windows";
constexpr char kMappedKey[] = "Software\\Microsoft\\Windows NT\\CurrentVersion\\Windows";
constexpr char kLines[] = "win.ini";  // the folder of the lines in the side folder
constexpr std::uint64_t kLargest = 1 << 20;
constexpr std::size_t kLongestProfileValue = 1999;  // a profile call cuts longer ones

std::string_view WithoutQuotes(std::string_view text) {
  const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
  return quoted ? text.substr(1, text.size() - 2) : text;
}

// The first key of that name, in the first section of ours: its line.
std::string_view LineOf(std::string_view text, std::string_view key) {
  bool inside = false;
  for (std::size_t at = 0; at < text.size();) {
    const std::string_view line = IniLineAt(text, at);
    at += line.size() + 1;
    const IniLine read = ReadIniLine(line);
    if (read.kind == IniLine::Kind::Header) {
      if (inside) break;
      inside = EqualsNoCase(read.name, kSection);
    } else if (inside && read.kind == IniLine::Kind::Key && EqualsNoCase(read.name, key)) {
      return line;
    }
  }
  return {};
}

// The text with its quotes.
std::string RawValue(std::string_view line) {
  const std::string_view value = line.substr(std::min(line.find('='), line.size() - 1) + 1);
  const std::size_t begin = value.find_first_not_of(" \t");
  if (begin == value.npos) return {};
  return std::string(value.substr(begin, value.find_last_not_of(" \t") - begin + 1));
}

// Whether a profile call answers `value` for a line that reads `raw`.
bool Answers(const std::string& raw, const std::string& value) {
  const std::string_view plain = WithoutQuotes(raw);
  return plain == value || (value.size() >= kLongestProfileValue && plain.starts_with(value));
}

}  // namespace

std::string SideFolder(const SystemFolders& folders) {
  return AddPathToFileName(folders.application, "Disabled Startup");
}

Outcome MakeSideFolder(Files& files, const SystemFolders& folders, const char* part) {
  const std::string side = SideFolder(folders);
  for (const std::string& folder : {side, AddPathToFileName(side, part)}) {
    if (Outcome made = files.CreateFolder(folder); !made.ok() && made.code() != kFileExists) {
      return made;
    }
  }
  return {};
}

std::string WinIniStore::IniPath() const { return AddPathToFileName(folders_.windows, "win.ini"); }

Outcome WinIniStore::Content(std::string* text) const {
  std::string bytes;
  Outcome read = files_.Read(IniPath(), kLargest, &bytes);
  if (read.code() == kFileNotFound) return {};
  return read.ok() ? code_pages_.Decode(code_pages_.System(), bytes, text) : read;
}

// Profile calls drop the outer quotes and cut what is long; where the line really lies, which is
// the registry on the NT family, it stands whole.
std::string WinIniStore::Read(const std::string& key) const {
  const std::string value = profiles_.ReadProfile(kSection, key, IniPath());
  std::string text;
  if (Content(&text).ok() && !text.empty()) {
    const std::string_view line = LineOf(text, key);
    std::string raw = line.empty() ? std::string() : RawValue(line);
    if (Answers(raw, value)) return raw;
  }
  RegValue mapped;
  if (registry_.QueryValue(RootKey::CurrentUser, kMappedKey, key, &mapped) == kRegOk) {
    std::string raw(TrimNull(mapped.data));
    if (Answers(raw, value)) return raw;
  }
  return value;
}

// A key that is there keeps its spelling.
Outcome WinIniStore::Write(const std::string& key, const std::string& line) const {
  std::string text;
  if (Outcome read = Content(&text); !read.ok()) return read;
  const std::string_view found = LineOf(text, key);
  const std::string spelt(found.empty() ? std::string_view(key) : ReadIniLine(found).name);
  return profiles_.WriteProfile(kSection, spelt, line, IniPath());
}

std::string WinIniStore::OriginalPath(const std::string& key) const {
  return AddPathToFileName(AddPathToFileName(SideFolder(folders_), kLines), key + ".txt");
}

std::string WinIniStore::Original(const std::string& key) const {
  std::string line;
  static_cast<void>(files_.Read(OriginalPath(key), kLargest, &line));
  return code_pages_.FromFile(line);
}

Outcome WinIniStore::KeepOriginal(const std::string& key, const std::string& line) const {
  if (line.empty()) {
    Outcome erased = files_.EraseFile(OriginalPath(key));
    const bool missing = erased.code() == kFileNotFound || erased.code() == kPathNotFound;
    return missing ? Outcome() : erased;
  }
  if (Outcome made = MakeSideFolder(files_, folders_, kLines); !made.ok()) return made;
  return files_.Replace(OriginalPath(key), code_pages_.ToFile(line));
}

}  // namespace scourwell
