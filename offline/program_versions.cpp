// SPDX-License-Identifier: MIT
#include "offline/program_versions.h"

#include <algorithm>
#include <optional>

#include "offline/little_endian.h"

namespace scourwell {
namespace {

constexpr std::size_t kLargestBlock = 1 << 18;
constexpr std::size_t kMostEntries = 4096;  // of a folder of resources, sections or types
constexpr std::uint32_t kVersionType = 16;

struct Extent {
  std::uint64_t offset = 0;
  std::size_t size = 0;
};

// A file from which single pieces are read.
class Pieces {
 public:
  explicit Pieces(FileReader& file) : file_(file) {}

  // Shorter at the end of the file.
  std::string At(std::uint64_t offset, std::size_t size) {
    if (offset >= file_.size()) return {};
    std::string bytes(std::min<std::uint64_t>(size, file_.size() - offset), '\0');
    std::size_t filled = 0;
    if (!file_.ReadAt(offset, bytes.data(), bytes.size(), &filled).ok()) filled = 0;
    bytes.resize(filled);
    return bytes;
  }

 private:
  FileReader& file_;
};

// The programs of 32 and 64 bits: a tree of folders, by type, name and language.
class NewProgram {
 public:
  NewProgram(Pieces& file, std::uint64_t header) : file_(file), header_(header) {}

  std::optional<Extent> FindVersion() {
    const std::string head = file_.At(header_, 24 + 240);
    const std::size_t optional = WordAt(head, 20);
    const bool wide = WordAt(head, 24) == 0x20B;
    const std::size_t folders = 24 + (wide ? 112 : 96);
    const std::uint32_t resources = DwordAt(head, folders + 2 * 8);
    const std::size_t sections = std::min<std::size_t>(WordAt(head, 6), kMostEntries);
    sections_ = file_.At(header_ + 24 + optional, sections * kSection);
    const auto root = ToOffset(resources);
    if (resources == 0 || !root) return std::nullopt;
    const auto type = Entry(*root, kVersionType);
    const auto name = type ? Entry(*root + (*type & kBelow), {}) : std::nullopt;
    const auto language = name ? Entry(*root + (*name & kBelow), {}) : std::nullopt;
    if (!language || !(*type & kFolderBit) || !(*name & kFolderBit)) return std::nullopt;
    const std::string data = file_.At(*root + (*language & kBelow), 16);
    const auto offset = ToOffset(DwordAt(data, 0));
    if (!offset) return std::nullopt;
    return Extent{*offset, DwordAt(data, 4)};
  }

 private:
  static constexpr std::size_t kSection = 40;
  static constexpr std::uint32_t kFolderBit = 0x80000000;
  static constexpr std::uint32_t kBelow = 0x7FFFFFFF;

  std::optional<std::uint64_t> ToOffset(std::uint32_t address) const {
    for (std::size_t at = 0; at + kSection <= sections_.size(); at += kSection) {
      const std::uint32_t begin = DwordAt(sections_, at + 12);
      const std::uint32_t size = std::max(DwordAt(sections_, at + 8), DwordAt(sections_, at + 16));
      if (address < begin || address - begin >= size) continue;
      return std::uint64_t{DwordAt(sections_, at + 20)} + (address - begin);
    }
    return std::nullopt;
  }

  // Where the entry of that number leads, or the first one.
  std::optional<std::uint32_t> Entry(std::uint64_t folder, std::optional<std::uint32_t> number) {
    const std::string head = file_.At(folder, 16);
    const std::size_t count =
        std::min<std::size_t>(WordAt(head, 12) + WordAt(head, 14), kMostEntries);
    const std::string entries = file_.At(folder + 16, count * 8);
    for (std::size_t at = 0; at + 8 <= entries.size(); at += 8) {
      if (!number || DwordAt(entries, at) == *number) return DwordAt(entries, at + 4);
    }
    return std::nullopt;
  }

  Pieces& file_;
  std::uint64_t header_;
  std::string sections_;
};

// The programs of 16 bits: one table, by type.
std::optional<Extent> FindOldVersion(Pieces& file, std::uint64_t header) {
  const std::string head = file.At(header, 64);
  const std::string table = file.At(header + WordAt(head, 0x24), 0x10000);
  const unsigned shift = WordAt(table, 0);
  if (shift > 16) return std::nullopt;
  for (std::size_t at = 2; at + 8 <= table.size() && WordAt(table, at) != 0;) {
    if (WordAt(table, at) == (0x8000 | kVersionType)) {
      return Extent{std::uint64_t{WordAt(table, at + 8)} << shift,
                    std::size_t{WordAt(table, at + 10)} << shift};
    }
    at += 8 + 12 * std::size_t{WordAt(table, at + 2)};
  }
  return std::nullopt;
}

}  // namespace

Outcome ProgramVersions::ReadBlock(const std::string& path, std::string* block) {
  std::unique_ptr<FileReader> reader;
  if (Outcome opened = files_.OpenReader(path, &reader); !opened.ok()) {
    return Outcome::Failed(kFileNotFound);
  }
  Pieces file(*reader);
  const std::string start = file.At(0, 64);
  std::optional<Extent> found;
  if (start.starts_with("MZ")) {
    const std::uint64_t header = DwordAt(start, 0x3C);
    const std::string sign = file.At(header, 4);
    if (sign == std::string_view("PE\0\0", 4)) found = NewProgram(file, header).FindVersion();
    if (sign.starts_with("NE")) found = FindOldVersion(file, header);
  }
  if (!found || found->size == 0 || found->size > kLargestBlock) {
    return Outcome::Failed(kFileNotFound);
  }
  *block = file.At(found->offset, found->size);
  return {};
}

std::string ProgramVersions::FromAnsi(std::string_view bytes) const {
  return code_pages_.FromFile(bytes);
}

}  // namespace scourwell
