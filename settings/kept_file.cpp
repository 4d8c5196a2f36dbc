// SPDX-License-Identifier: MIT
#include "settings/kept_file.h"

#include <algorithm>

#include "machine/file_utils.h"
#include "text/escaped.h"
#include "text/ini_text.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr std::uint64_t kLargest = 1u << 20;
constexpr char kHeading[] =
    "; Scourwell keeps its settings in this file, because it stands beside the program.\r\n";
constexpr char kHere[] = ".";

bool IsControl(char c) {
  return static_cast<unsigned char>(c) < ' ' && c != '\t' && c != '\r' && c != '\n';
}

std::string Line(const std::string& key, const std::string& text) {
  const std::string plain = Escaped(text, [](char32_t c) { return c >= ' ' && c < 0x7F; });
  std::string line = key + "=" + plain;
  if (ReadIniLine(line).value != plain) line = key + "=\"" + plain + "\"";
  return line;
}

// What would not read back cannot be kept.
bool CanBeWritten(const KeptText& each) {
  const IniLine header = ReadIniLine("[" + each.section + "]");
  const std::string line = Line(each.key, each.text);
  const IniLine read = ReadIniLine(line);
  return header.kind == IniLine::Kind::Header && header.name == each.section &&
         read.kind == IniLine::Kind::Key && read.name == each.key &&
         Unescaped(read.value) == each.text;
}

}  // namespace

KeptFile::KeptFile(Files& files, CodePages& code_pages, std::string path)
    : files_(files),
      code_pages_(code_pages),
      path_(std::move(path)),
      folder_(AddPathToFileName(FolderPart(path_), "")) {
  static_cast<void>(Load());
  read_only_ = !CanWriteIn(files_, std::string(FolderPart(path_)));
}

Outcome KeptFile::Load() {
  std::string content;
  Outcome read = files_.Read(path_, kLargest, &content);
  if (!read.ok() && read.code() != kOutOfMemory) return read;
  if (content == content_ && read.ok()) return {};
  texts_.clear();
  content_ = std::move(content);
  if (!read.ok() || std::any_of(content_.begin(), content_.end(), IsControl)) return {};
  std::string section;
  for (std::size_t begin = 0; begin < content_.size();) {
    const std::string_view whole = IniLineAt(content_, begin);
    begin += whole.size() + 1;
    const IniLine line = ReadIniLine(whole);
    if (line.kind == IniLine::Kind::Header) section = line.name;
    if (line.kind != IniLine::Kind::Key || section.empty()) continue;
    texts_[section].try_emplace(std::string(line.name), code_pages_.FromFile(line.value));
  }
  return {};
}

std::string KeptFile::Content() const {
  std::string content = kHeading;
  for (const auto& [section, texts] : texts_) {
    content += "[" + section + "]\r\n";
    for (const auto& [key, text] : texts) content += Line(key, text) + "\r\n";
  }
  return content;
}

std::string KeptFile::Get(const std::string& section, const std::string& key) {
  const auto texts = texts_.find(section);
  if (texts == texts_.end()) return {};
  const auto text = texts->second.find(key);
  return text == texts->second.end() ? std::string() : text->second;
}

Outcome KeptFile::Set(const std::string& section, const std::string& key, const std::string& text) {
  const KeptText one{section, key, text};
  return SetAll({&one, 1});
}

// The file is written once, whatever the number of texts: it may lie on a slow stick. What another
// program of the copy has written meanwhile stays.
Outcome KeptFile::SetAll(std::span<const KeptText> texts) {
  Outcome first;
  if (!read_only_) {
    first = Load();
    if (first.code() == kFileNotFound) first = {};
  }
  for (const KeptText& each : texts) {
    if (CanBeWritten(each)) {
      texts_[each.section][each.key] = each.text;
    } else if (first.ok()) {
      first = Outcome::Failed(kBadFileName, "This text cannot be kept").With("Key: ", each.key);
    }
  }
  if (read_only_ || (!first.ok() && first.code() != kBadFileName)) return first;
  std::string content = Content();
  if (content == content_) return first;
  Outcome written = files_.Replace(path_, content);
  if (!written.ok()) return std::move(written).With("File: ", path_);
  content_ = std::move(content);
  return first;
}

std::string KeptFile::WrittenFolder(const std::string& folder) const {
  const std::string whole = AddPathToFileName(folder, "");
  if (const std::size_t own = PrefixNoCase(whole, folder_); own != std::string::npos) {
    const std::string below(WithoutEndSeparators(std::string_view(whole).substr(own)));
    return below.empty() ? kHere : below;
  }
  const std::string root = folder_.substr(0, RootSize(folder_));
  const std::size_t end = root.empty() ? std::string::npos : PrefixNoCase(whole, root);
  if (end == std::string::npos) return {};
  return kSeparator + std::string(WithoutEndSeparators(std::string_view(whole).substr(end)));
}

// An absolute path would be another folder wherever the drive has another letter.
std::string KeptFile::FolderOf(const std::string& text) const {
  if (text.empty() || IsAbsolutePath(text)) return {};
  if (text == kHere) return std::string(WithoutEndSeparators(folder_));
  const bool from_root = BeginsWithSeparator(text);
  const std::string base = from_root ? folder_.substr(0, RootSize(folder_)) : folder_;
  const std::string folder = base + text.substr(from_root ? 1 : 0);
  return IsPlainPath(folder) ? folder : std::string();
}

}  // namespace scourwell
