// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>

#include "backup/archive_reader.h"
#include "backup/archive_writer.h"
#include "backup/byte_order.h"
#include "tests/support.h"

namespace scourwell::test {

inline constexpr char kArchivePath[] = "C:\\Backup\\one.qzp";

// Bytes that do not shrink.
inline std::string Noise(std::size_t size, std::uint32_t seed = 7) {
  std::mt19937 engine(seed);
  std::string bytes(size, '\0');
  for (char& c : bytes) c = static_cast<char>(engine());
  return bytes;
}

struct ArchiveBench {
  FakeMachine m;

  ArchiveBench() { m.Folder("C:\\Backup"); }

  ArchiveReader Reader() { return ArchiveReader(m.files, m.pump, m.code_pages); }
  // Makes an archive of these paths.
  Outcome Store(const std::vector<std::string>& paths, ArchiveOptions options = {},
                ArchiveResult* result = nullptr, const char* archive = kArchivePath) {
    ArchiveWriter writer(m.files, m.clock, m.pump);
    Outcome done = writer.Create(archive, std::move(options));
    for (const std::string& path : paths) {
      if (done.ok()) done = writer.AddFile(path);
    }
    if (done.ok()) done = writer.Finish();
    if (result) *result = writer.result();
    return done;
  }
  // What comes out of an item; "(number)" when it fails.
  static std::string ItemText(ArchiveReader& reader, std::size_t item) {
    std::string text;
    const Outcome read = reader.ReadItem(item, [&](std::string_view block) {
      text += block;
      return Outcome();
    });
    return read.ok() ? text : "(" + std::to_string(read.code().number()) + ")";
  }
  // All items of the archive, one a line: path, kind, attributes, times and content.
  std::string Items() {
    ArchiveReader reader = Reader();
    REQUIRE(reader.Open(kArchivePath).ok());
    std::string text;
    for (std::size_t i = 0; i < reader.items().size(); ++i) {
      const ArchiveItem& item = reader.items()[i];
      text += item.path;
      for (const std::uint64_t number :
           {static_cast<std::uint64_t>(item.kind), std::uint64_t{item.attributes},
            item.times.created, item.times.modified, item.times.accessed}) {
        text += " " + std::to_string(number);
      }
      text += " " + ItemText(reader, i) + "\n";
    }
    return text;
  }
  // The names below a folder, one a line.
  std::string Names(const std::string& folder) {
    std::string names;
    for (const auto& child : m.files.Find(folder)->children) names += child->name + "\n";
    return names;
  }
};

}  // namespace scourwell::test
