// SPDX-License-Identifier: MIT
#include "shell/language_list.h"

#include <algorithm>

#include "machine/file_utils.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr std::size_t kExtension = sizeof kPackExtension - 1;
constexpr std::uint64_t kLargestPicture = 256 * 1024;  // bytes
constexpr std::uint32_t kLongestSide = 256;            // pixels
constexpr std::size_t kFileHeader = 14;
constexpr std::size_t kInfoHeader = 40;

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

bool IsSmallBitmap(std::string_view content) {
  const auto number = [&](std::size_t at, std::size_t bytes) {
    std::uint32_t value = 0;
    for (std::size_t i = bytes; i-- > 0;) {
      value = value << 8 | static_cast<unsigned char>(content[at + i]);
    }
    return value;
  };
  if (content.size() < kFileHeader + kInfoHeader || !content.starts_with("BM")) return false;
  const std::uint32_t pixels = number(10, 4);
  const std::uint32_t width = number(18, 4);
  const std::uint32_t height = number(22, 4);
  const std::uint32_t depth = number(28, 2);
  // Packed ones and longer headers are refused.
  if (number(14, 4) != kInfoHeader || number(30, 4) != 0) return false;
  if (width < 1 || width > kLongestSide || height < 1 || height > kLongestSide) return false;
  if (depth != 1 && depth != 4 && depth != 8 && depth != 16 && depth != 24 && depth != 32) {
    return false;
  }
  const std::uint32_t line = (width * depth + 31) / 32 * 4;
  const std::uint32_t most = depth <= 8 ? 1u << depth : 0;
  const std::uint32_t used = number(46, 4);
  const std::uint32_t colours = used == 0 ? most : used;
  return colours <= most && pixels >= kFileHeader + kInfoHeader + 4 * colours &&
         pixels <= content.size() && content.size() - pixels >= line * height;
}

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
