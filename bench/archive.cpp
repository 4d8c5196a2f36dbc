// SPDX-License-Identifier: MIT

// Backup archives against zlib alone, on the same bytes.
#include <zlib.h>

#include <string>
#include <vector>

#include "backup/extractor.h"
#include "bench/bench.h"
#include "machine/file_utils.h"
#include "platform/win/code_pages_win.h"
#include "platform/win/desktop_win.h"
#include "platform/win/files_win.h"

namespace scourwell::bench {
namespace {

constexpr std::size_t kMostBytes = 64 << 20;

// Lets everything pass: what is measured is the archive.
class OpenGuard : public RestoreGuard {
 public:
  Outcome Allow(const std::string&, std::vector<std::unique_ptr<FolderHold>>*) override {
    return {};
  }
};

struct Copies {
  std::string folder;
  std::vector<std::string> paths;
  std::string bytes;  // of all of them
};

// Up to 64 MB of the files of the system folder.
Copies CopySystemFiles(FilesWin& files, const std::string& folder) {
  Copies copies;
  copies.folder = folder;
  files.CreateFolder(folder).ok();
  char system[MAX_PATH];
  GetSystemDirectoryA(system, sizeof system);
  files
      .List(AddPathToFileName(system, "*.*"),
            [&](const DirEntry& entry) {
              std::string content;
              const std::uint64_t room = kMostBytes - copies.bytes.size();
              if (entry.IsFolder() || entry.size > room ||
                  !files.Read(AddPathToFileName(system, entry.name), room, &content).ok()) {
                return true;
              }
              const std::string copy = AddPathToFileName(folder, entry.name);
              if (files.Replace(copy, content).ok()) {
                copies.paths.push_back(copy);
                copies.bytes += content;
              }
              return true;
            })
      .ok();
  return copies;
}

void Write(FilesWin& files, ClockWin& clock, GapPump& pump, const Copies& copies,
           const std::string& path) {
  files.EraseFile(path).ok();
  ArchiveWriter writer(files, clock, pump);
  const bool done =
      writer.Create(path).ok() && writer.AddFile(copies.folder).ok() && writer.Finish().ok();
  if (!done || writer.result().bytes != copies.bytes.size())
    std::printf("cannot write %s\n", path.c_str());
}

void Read(FilesWin& files, GapPump& pump, const std::string& path) {
  CodePagesWin code_pages;
  ArchiveReader reader(files, pump, code_pages);
  if (!reader.Open(path).ok() || !reader.Verify().empty()) {
    std::printf("cannot read %s\n", path.c_str());
  }
}

void BenchRestore(FilesWin& files, GapPump& pump, const Copies& copies, const std::string& path) {
  Figures times;
  for (int i = 0; i < 5; ++i) {
    for (const std::string& copy : copies.paths) files.EraseFile(copy).ok();
    OpenGuard guard;
    CodePagesWin code_pages;
    ArchiveReader reader(files, pump, code_pages);
    Extractor extractor(files, pump, guard);
    times.values.push_back(Measure([&] {
      if (reader.Open(path).ok()) extractor.ExtractAll(reader).ok();
    }));
    if (extractor.result().restored != copies.paths.size() + 1) std::printf("cannot restore\n");
  }
  std::printf("restoring them: %.1f ms (%.1f to %.1f)\n", times.Median(), times.Min(), times.Max());
}

}  // namespace

void BenchArchive(const char* scratch_folder) {
  FilesWin files;
  ClockWin clock;
  GapPump pump;
  const Copies copies = CopySystemFiles(files, AddPathToFileName(scratch_folder, "copies"));
  const std::string path = AddPathToFileName(scratch_folder, "bench.qzp");
  std::string packed(compressBound(static_cast<uLong>(copies.bytes.size())), '\0');
  std::string plain(copies.bytes.size(), '\0');
  const auto raw = [](const std::string& text) {
    return reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
  };
  uLongf size = 0;
  Compare(
      "backup, beside compress2", pump,
      [&] {
        size = static_cast<uLongf>(packed.size());
        compress2(raw(packed), &size, raw(copies.bytes), static_cast<uLong>(copies.bytes.size()),
                  6);
      },
      [&] { Write(files, clock, pump, copies, path); });
  Compare(
      "reading it, beside uncompress", pump,
      [&] {
        uLongf expanded = static_cast<uLongf>(plain.size());
        uncompress(raw(plain), &expanded, raw(packed), size);
      },
      [&] { Read(files, pump, path); });
  DirEntry entry;
  files.Stat(path, &entry).ok();
  std::printf("%d files, %.1f MB; zlib makes %.1f MB of them, the archive has %.1f MB\n",
              static_cast<int>(copies.paths.size()), copies.bytes.size() / 1048576.0,
              size / 1048576.0, static_cast<double>(entry.size) / 1048576.0);
  BenchRestore(files, pump, copies, path);
  for (const std::string& copy : copies.paths) {
    files.SetAttributes(copy, 0).ok();
    files.EraseFile(copy).ok();
  }
  files.RemoveFolder(copies.folder).ok();
  files.EraseFile(path).ok();
}

}  // namespace scourwell::bench
