// SPDX-License-Identifier: MIT
#include "shell/language_list.h"

#include <algorithm>

#include "machine/file_utils.h"
#include "shell/small_bitmap.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr std::size_t kExtension = sizeof kPackExtension - 1;
constexpr std::uint64_t kLargestPicture = 256 * 1024;  // bytes

// The picture's path, empty when there is none.
Outcome FindPicture(Files& files, const std::string& path, std::string* picture) {
  std::string content;
  Outcome read = files.Read(path, kLargestPicture, &content);
  if (read.code() == kFileNotFound) return {};
  if (!read.ok()) return std::move(read).With("File: ", path);
  if (!IsSmallBitmap(content)) {
    return Outcome::Failed(kTypeMismatch, "The picture of a language is damaged")
        .With("File: ", path);
  }
  *picture = path;
  return {};
}

}  // namespace

std::vector<LanguageEntry> ListLanguages(Files& files, ErrorLog& log, const std::string& folder) {
  std::vector<LanguageEntry> entries;
  const std::string pattern = AddPathToFileName(folder, std::string("*") + kPackExtension);
  // A missing folder is an empty list.
  static_cast<void>(files.List(pattern, [&](const DirEntry& entry) {
    const std::string& name = entry.name;
    // The pattern is also compared with the short names, which cut an extension off.
    const bool pack = name.size() > kExtension && EndsWithNoCase(name, kPackExtension);
    if (pack && !entry.IsFolder()) {
      entries.push_back({name.substr(0, name.size() - kExtension), {}});
    }
    return true;
  }));
  std::sort(entries.begin(), entries.end(), [](const LanguageEntry& a, const LanguageEntry& b) {
    return CompareNoCase(a.name, b.name) < 0;
  });
  for (LanguageEntry& entry : entries) {
    log.Trap("CmbLang", [&] {
      return FindPicture(files, AddPathToFileName(folder, entry.name + ".bmp"), &entry.picture);
    });
  }
  return entries;
}

}  // namespace scourwell
