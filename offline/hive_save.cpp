// SPDX-License-Identifier: MIT

// How a changed hive takes the place of the old one.
#include <unistd.h>

#include <cerrno>

#include "offline/hive_file.h"
#include "offline/private_copy.h"

namespace scourwell {
namespace {

constexpr char kBeside[] = ".scourwell";

Outcome CopyToDisk(const UniqueFd& copy, Files& files, const std::string& path) {
  std::unique_ptr<FileWriter> writer;
  if (Outcome opened = files.OpenWriter(path, &writer); !opened.ok()) return opened;
  std::string block(Files::kBlockSize, '\0');
  for (off_t at = 0;;) {
    const ssize_t size = pread(copy.get(), block.data(), block.size(), at);
    if (size < 0) return FailedWithErrno();
    if (size == 0) return writer->Commit();
    Outcome written = writer->Write(std::string_view(block).substr(0, static_cast<size_t>(size)));
    if (!written.ok()) return written;
    at += size;
  }
}

Outcome Compare(const UniqueFd& copy, Files& files, const std::string& path) {
  std::string expected(Files::kBlockSize, '\0');
  off_t at = 0;
  bool same = true;
  Outcome read = files.ReadBlocks(path, [&](std::string_view block) {
    const ssize_t size = pread(copy.get(), expected.data(), block.size(), at);
    at += static_cast<off_t>(block.size());
    same = size == static_cast<ssize_t>(block.size()) &&
           block == std::string_view(expected).substr(0, block.size());
    return same;
  });
  if (!read.ok()) return read;
  same = same && at == lseek(copy.get(), 0, SEEK_END);
  return same ? Outcome()
              : Outcome::Failed(kDeviceError, "What was written does not read as it should");
}

}  // namespace

Outcome HiveFile::Save() {
  if (!changed_) return {};
  UniqueFd copy = NewPrivateFile();
  if (!copy) return FailedWithErrno();
  if (hivex_commit(hive_.get(), PathOf(copy).c_str(), 0) != 0) return FailedWithErrno();
  // What the library itself cannot open any more must not reach the disk.
  if (!std::unique_ptr<hive_h, CloseHive>(hivex_open(PathOf(copy).c_str(), 0))) {
    return Outcome::Failed(kDeviceError, "The changed registry file cannot be read back");
  }
  const std::string beside = path_ + kBeside;
  Outcome saved = CopyToDisk(copy, files_, beside);
  if (saved.ok()) saved = Compare(copy, files_, beside);
  if (saved.ok()) saved = files_.TakePlace(beside, path_);
  if (!saved.ok()) {
    static_cast<void>(files_.EraseFile(beside));
    return saved;
  }
  changed_ = false;
  return {};
}

}  // namespace scourwell
