// SPDX-License-Identifier: MIT

// The checksum of a file against reading it, and version texts against the system's own reader.
#include <string>

#include "bench/bench.h"
#include "machine/file_utils.h"
#include "machine/version_resource.h"
#include "platform/win/files_win.h"
#include "platform/win/unique_handle.h"
#include "platform/win/versions_win.h"
#include "scan/advanced_scan.h"
#include "scan/checksum.h"

namespace scourwell::bench {
namespace {

constexpr int kMegabytes = 64;

bool WriteLarge(Files& files, const std::string& path) {
  std::string megabyte(1 << 20, '\0');
  for (std::size_t i = 0; i < megabyte.size(); ++i) megabyte[i] = static_cast<char>(i * 31 >> 3);
  if (!files.Replace(path, "").ok()) return false;
  for (int i = 0; i < kMegabytes; ++i) {
    if (!files.Append(path, megabyte).ok()) return false;
  }
  return true;
}

void BareRead(const std::string& path) {
  static char block[Files::kBlockSize];
  const FileHandle file(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  DWORD read = 0;
  while (ReadFile(file.get(), block, sizeof block, &read, nullptr) && read != 0) {
  }
}

void BenchChecksum(FilesWin& files, GapPump& pump, const std::string& path) {
  std::optional<std::uint8_t> sum;
  Compare(
      "checksum, 64 MB", pump, [&] { BareRead(path); },
      [&] { GetFileCheckSum(files, pump, path, &sum).ok(); });
  if (!sum) std::printf("cannot read %s\n", path.c_str());
}

std::vector<std::string> SystemFiles(FilesWin& files) {
  char folder[MAX_PATH];
  GetSystemDirectoryA(folder, sizeof folder);
  std::vector<std::string> paths;
  files
      .List(AddPathToFileName(folder, "*.*"),
            [&](const DirEntry& entry) {
              if (!entry.IsFolder()) paths.push_back(AddPathToFileName(folder, entry.name));
              return true;
            })
      .ok();
  return paths;
}

// The number of texts found, of those that a scan compares.
int SystemTexts(const std::string& path) {
  DWORD ignored = 0;
  const DWORD size = GetFileVersionInfoSizeA(path.c_str(), &ignored);
  if (size == 0) return 0;
  std::string block(size, '\0');
  if (!GetFileVersionInfoA(path.c_str(), 0, size, block.data())) return 0;
  void* value = nullptr;
  UINT length = 0;
  if (!VerQueryValueA(block.data(), "\\VarFileInfo\\Translation", &value, &length) || length < 4) {
    return 0;
  }
  const WORD* const pair = static_cast<const WORD*>(value);
  char table[40];
  std::snprintf(table, sizeof table, "\\StringFileInfo\\%04X%04X\\", pair[0], pair[1]);
  int texts = 0;
  for (const VersionField field : PropertyIndex::kFields) {
    const std::string name = table + std::string(kVersionFieldNames[field]);
    if (VerQueryValueA(block.data(), name.c_str(), &value, &length)) ++texts;
  }
  return texts;
}

int OurTexts(VersionsWin& versions, const std::string& path, std::string* block) {
  if (!versions.ReadBlock(path, block).ok()) return 0;
  const VersionResource resource(*block, versions);
  int texts = 0;
  for (const VersionField field : PropertyIndex::kFields) texts += resource.Text(field).has_value();
  return texts;
}

void BenchVersions(FilesWin& files, GapPump& pump) {
  VersionsWin versions;
  std::string block;
  const std::vector<std::string> paths = SystemFiles(files);
  int system = 0;
  int ours = 0;
  Compare(
      "version texts of the system folder", pump,
      [&] {
        system = 0;
        for (const std::string& path : paths) system += SystemTexts(path);
      },
      [&] {
        ours = 0;
        for (const std::string& path : paths) {
          if (!pump.Next()) return;
          ours += OurTexts(versions, path, &block);
        }
      });
  std::printf("version texts: %d files, the system finds %d texts, we find %d\n",
              static_cast<int>(paths.size()), system, ours);
}

}  // namespace

void ReadVersionsOnce(const char* folder) {
  FilesWin files;
  int texts = 0;
  int count = 0;
  const double took = Measure([&] {
    const Outcome listed =
        files.ListNames(AddPathToFileName(folder, "*.*"), [&](const DirEntry& entry) {
          ++count;
          texts += SystemTexts(AddPathToFileName(folder, entry.name));
          return true;
        });
    if (!listed.ok()) std::printf("%s cannot be listed\n", folder);
  });
  std::printf("versions: %.1f ms, %d files, %d texts\n", took, count, texts);
}

void BenchReading(const char* scratch_folder) {
  FilesWin files;
  GapPump pump;
  const std::string path = AddPathToFileName(scratch_folder, "large.bin");
  if (WriteLarge(files, path)) {
    BenchChecksum(files, pump, path);
  } else {
    std::printf("cannot write %s\n", path.c_str());
  }
  files.EraseFile(path).ok();
  BenchVersions(files, pump);
}

}  // namespace scourwell::bench
