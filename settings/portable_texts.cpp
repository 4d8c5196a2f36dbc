// SPDX-License-Identifier: MIT
#include "settings/portable_texts.h"

#include <algorithm>

#include "machine/file_utils.h"
#include "text/escaped.h"
#include "text/ini_text.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr std::uint64_t kLargestFile = 1u << 20;
constexpr char kHeading[] =
    "; Scourwell keeps its settings in this file, and none in the registry.\r\n";
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
  const std::string heading = "[" + each.section + "]";
  const IniLine header = ReadIniLine(heading);
  const std::string line = Line(each.key, each.text);
  const IniLine read = ReadIniLine(line);
  return IniLineAt(heading, 0) == heading && IniLineAt(line, 0) == line &&
         header.kind == IniLine::Kind::Header && header.name == each.section &&
         read.kind == IniLine::Kind::Key && read.name == each.key &&
         Unescaped(read.value) == each.text;
}

}  // namespace

PortableTexts::PortableTexts(Files& files, CodePages& code_pages, std::string path)
    : files_(files),
      code_pages_(code_pages),
      path_(std::move(path)),
      folder_(AddPathToFileName(FolderPart(path_), "")) {
  static_cast<void>(Load());
}

bool PortableTexts::read_only() {
  if (!read_only_) read_only_ = !CanWriteIn(files_, std::string(FolderPart(path_)));
  return *read_only_;
}

Outcome PortableTexts::Load() {
  std::string content;
  Outcome read = files_.Read(path_, kLargestFile, &content);
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
    if (Find(section, line.name)) continue;
    Keep({section, std::string(line.name), code_pages_.FromFile(line.value)});
  }
  return {};
}

KeptText* PortableTexts::Find(std::string_view section, std::string_view key) {
  for (KeptText& each : texts_) {
    if (EqualsNoCase(each.section, section) && EqualsNoCase(each.key, key)) return &each;
  }
  return nullptr;
}

// What belongs to one section stands together.
void PortableTexts::Keep(KeptText text) {
  if (KeptText* known = Find(text.section, text.key)) {
    known->text = std::move(text.text);
    return;
  }
  std::size_t at = texts_.size();
  while (at > 0 && !EqualsNoCase(texts_[at - 1].section, text.section)) --at;
  const std::size_t behind = at > 0 ? at : texts_.size();
  texts_.insert(texts_.begin() + static_cast<std::ptrdiff_t>(behind), std::move(text));
}

std::string PortableTexts::Content() const {
  std::string content = kHeading;
  std::string_view section;
  for (const KeptText& each : texts_) {
    if (!EqualsNoCase(each.section, section)) content += "[" + each.section + "]\r\n";
    section = each.section;
    content += Line(each.key, each.text) + "\r\n";
  }
  return content;
}

std::string PortableTexts::Get(const std::string& section, const std::string& key) {
  const KeptText* found = Find(section, key);
  return found ? found->text : std::string();
}

Outcome PortableTexts::Set(const std::string& section, const std::string& key,
                           const std::string& text) {
  const KeptText one{section, key, text};
  return SetAll({&one, 1});
}

// The file is written once, whatever the number of texts: it may lie on a slow stick. What another
// program of the copy has written meanwhile stays.
Outcome PortableTexts::SetAll(std::span<const KeptText> texts) {
  Outcome first;
  if (!read_only()) {
    first = Load();
    if (first.code() == kFileNotFound) first = {};
  }
  for (const KeptText& each : texts) {
    if (CanBeWritten(each)) {
      Keep(each);
    } else if (first.ok()) {
      first = Outcome::Failed(kBadFileName, "This text cannot be kept").With("Key: ", each.key);
    }
  }
  if (read_only() || (!first.ok() && first.code() != kBadFileName)) return first;
  std::string content = Content();
  if (content == content_) return first;
  Outcome written = files_.Replace(path_, content);
  if (!written.ok()) return std::move(written).With("File: ", path_);
  content_ = std::move(content);
  return first;
}

std::string PortableTexts::WrittenFolder(const std::string& folder) const {
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
std::string PortableTexts::FolderOf(const std::string& text) const {
  if (text.empty() || IsAbsolutePath(text)) return {};
  if (text == kHere) return std::string(WithoutEndSeparators(folder_));
  const bool from_root = BeginsWithSeparator(text);
  const std::string base = from_root ? folder_.substr(0, RootSize(folder_)) : folder_;
  const std::string folder = base + text.substr(from_root ? 1 : 0);
  return IsPlainPath(folder) ? folder : std::string();
}

}  // namespace scourwell
